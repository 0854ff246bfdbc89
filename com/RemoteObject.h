#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>

#include "automation/ExceptionDetails.h"
#include "automation/Variant.h"
#include "com/Member.h"
#include "com/MemberIds.h"
#include "com/RemotePointer.h"
#include "com/RemoteValue.h"
#include "com/ServerState.h"

namespace com {

// An object of the session server, and its only owner: every call, question for a member's number,
// reading of an error object and release goes through here, and so through the guard of its
// server's state. It is called by the names of its members. A call allocates nothing of its own.
class RemoteObject {
 public:
  // Takes over a reference of the caller.
  RemoteObject(IDispatch* object, std::shared_ptr<ServerState> server);
  RemoteObject(RemoteObject&&) noexcept = default;
  RemoteObject& operator=(RemoteObject&&) = delete;

  // Calls a member for its work alone. Raises 438 when the object has no such member, else what the
  // failure stands for.
  template <typename... Arguments>
  void Call(Member member, const Arguments&... arguments) {
    Check(member, TryCall(member, arguments...));
  }

  // The same; gives failures out that say nothing about the work, only about the call.
  template <typename... Arguments>
  HRESULT TryCall(Member member, const Arguments&... arguments) {
    return Invoke(member, nullptr, arguments...);
  }

  // Who is told of the server's calls; null for nobody.
  CallObserver* Observer() const { return server_->Observer(); }

  // The same for a method that an object may do without; it then does nothing.
  void CallIfThere(Member member);

  // Calls a method, or asks for a property, for a plain value: a reference is followed, and an
  // object stands for its default value. Raises 91 when there is no object.
  template <typename... Arguments>
  void Read(Member member, automation::Variant& result, const Arguments&... arguments) {
    Check(member, Invoke(member, &result, arguments...));
    if (!IsPlain(result)) MakePlain(result);
  }

  // The same for an object, which may come by reference. Raises 91 when it gave none, 424 when it
  // gave something else, 430 when the object cannot be called late-bound.
  template <typename... Arguments>
  RemoteObject Open(Member member, const Arguments&... arguments) {
    VARIANT result;
    result.vt = VT_EMPTY;
    Check(member, Invoke(member, &result, arguments...));
    return ObjectIn(result);
  }

  // Makes a value plain that the object put where it was given a reference to.
  void MakePlain(VARIANT& value) const;

  // Raises what a failed call of a member stands for.
  void Check(Member member, HRESULT answer) const {
    if (FAILED(answer)) RaiseCall(member, answer);
  }

  // The member's number, asked for when it is not known yet. S_OK, or what the object answered.
  HRESULT FindId(Member member, DISPID& id);
  // Calls the object by numbers that are shared with others of its class from now on.
  const std::shared_ptr<MemberIds>& Ids() const { return ids_; }
  void ShareIds(std::shared_ptr<MemberIds> ids);
  // What is the same for all objects that the same code dispatches the calls of.
  const void* DispatchCode() const;

 private:
  template <typename... Arguments>
  HRESULT Invoke(Member member, VARIANT* result, const Arguments&... arguments) {
    VARIANT reversed[sizeof...(Arguments) + 1];
    std::size_t at = sizeof...(Arguments);
    ((reversed[--at] = arguments), ...);
    DISPPARAMS all{reversed, nullptr, static_cast<UINT>(sizeof...(Arguments)), 0};
    return InvokeMember(member, all, result);
  }

  HRESULT InvokeMember(Member member, DISPPARAMS& arguments, VARIANT* result);
  HRESULT InvokeId(DISPID id, DISPPARAMS& arguments, VARIANT* result) const;
  HRESULT AskForId(Member member, DISPID& id);
  RemoteObject ObjectIn(VARIANT& value) const;
  RemoteObject TakeObject(RemoteValue& value) const;

  // How a failure is described (RemoteObjectErrors.cpp).
  [[noreturn]] void RaiseCall(Member member, HRESULT answer) const;
  [[noreturn]] void RaiseResult(HRESULT result) const;
  [[noreturn]] void RaiseDescribed(automation::ExceptionDetails& details) const;
  std::wstring ErrorObjectText() const;
  bool LeavesErrorObjects() const;

  std::shared_ptr<ServerState> server_;
  RemotePointer<IDispatch> object_;  // goes before the state that its end is told to
  std::shared_ptr<MemberIds> ids_;
};

}  // namespace com
