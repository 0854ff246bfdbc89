#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <memory>
#include <string>

#include "com/MemberIds.h"
#include "com/ServerTexts.h"
#include "com/Variant.h"

namespace com {

// What all objects of one session server share: the texts for its failures, and whether it has
// died. Once a call has ended in a structured exception, nothing of that server is touched again.
struct ServerFate {
  ServerTexts texts;
  DWORD exception = 0;
};

// An object that is called by the names of its members. A call allocates nothing of its own.
class LateBound {
 public:
  LateBound(Microsoft::WRL::ComPtr<IDispatch> object, std::shared_ptr<MemberIds> ids,
            std::shared_ptr<ServerFate> fate);
  ~LateBound();
  LateBound(LateBound&&) noexcept = default;
  LateBound& operator=(LateBound&&) = delete;

  // Calls a member, as a method or for a property's value. A null result asks for none.
  // Raises 438 when the object has no such member, else what the failure stands for.
  template <typename... Arguments>
  void Call(std::size_t member, VARIANT* result, const Arguments&... arguments) {
    Check(member, TryCall(member, result, arguments...));
  }

  // The same; gives failures out that say nothing about the work, only about the call.
  template <typename... Arguments>
  HRESULT TryCall(std::size_t member, VARIANT* result, const Arguments&... arguments) {
    VARIANT reversed[sizeof...(Arguments) + 1];
    std::size_t at = sizeof...(Arguments);
    ((reversed[--at] = arguments), ...);
    return Invoke(member, reversed, sizeof...(Arguments), result);
  }

  // Raises what a failed call of a member stands for.
  void Check(std::size_t member, HRESULT answer) const {
    if (FAILED(answer)) Raise(member, answer);
  }

  // Calls a member for a plain value: a reference is followed, and an object stands for its default
  // value. Raises 91 when there is no object.
  template <typename... Arguments>
  void Read(std::size_t member, Variant& result, const Arguments&... arguments) {
    Call(member, &result, arguments...);
    if (result.vt == VT_DISPATCH || (result.vt & VT_BYREF) != 0) MakePlain(result);
  }

  // Calls a method that an object may do without; it then does nothing.
  void CallIfThere(std::size_t member);

  // An object that a call of this one gave back. Raises 91 when it gave none, 424 when it gave
  // something else, 430 when the object cannot be called late-bound.
  Microsoft::WRL::ComPtr<IDispatch> ObjectIn(const VARIANT& value) const;

  const std::shared_ptr<ServerFate>& Fate() const { return fate_; }

 private:
  HRESULT Invoke(std::size_t member, VARIANT* reversed, std::size_t count, VARIANT* result);
  HRESULT InvokeOn(IDispatch* object, DISPID id, DISPPARAMS& arguments, VARIANT* result) const;
  void MakePlain(Variant& value) const;
  [[noreturn]] void Raise(std::size_t member, HRESULT answer) const;
  [[noreturn]] void RaiseLost() const;

  Microsoft::WRL::ComPtr<IDispatch> object_;
  std::shared_ptr<MemberIds> ids_;
  std::shared_ptr<ServerFate> fate_;
};

}  // namespace com
