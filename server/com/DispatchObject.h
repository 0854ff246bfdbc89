#pragma once

#include <windows.h>

#include <oaidl.h>

#include <span>

#include "automation/ComObject.h"
#include "server/com/Arguments.h"
#include "server/com/LiveObject.h"

namespace server::com {

class DispatchObject;

// A member of a late-bound object: the name and the number that the type library has for it, how
// many arguments it takes, and what does its work.
struct Member {
  using Handler = void (*)(DispatchObject& object, Arguments& arguments, VARIANT& answer);

  const wchar_t* name;
  DISPID id;
  unsigned arguments;
  Handler handler;
};

// An object that is called by the names of its members. Nothing that a handler throws leaves it:
// failures are described in the automation manner.
class DispatchObject : public automation::ComObject<IDispatch, ISupportErrorInfo> {
 public:
  // Both outlive the object.
  DispatchObject(const GUID& interfaceId, std::span<const Member> members)
      : interfaceId_(interfaceId), members_(members) {}

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind,
                                   DISPPARAMS* call, VARIANT* answer, EXCEPINFO* exception,
                                   UINT* wrongArgument) override;

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;

 protected:
  bool IsFirst(REFIID id) const override;

  // A method of a derived class as the handler of a member. When it is called, the number of
  // arguments is right and the answer is empty.
  template <typename Class, void (Class::*Method)(Arguments& arguments, VARIANT& answer)>
  static void Handle(DispatchObject& object, Arguments& arguments, VARIANT& answer) {
    (static_cast<Class&>(object).*Method)(arguments, answer);
  }

 private:
  const Member* Find(DISPID id) const;
  static HRESULT Check(const Member* member, WORD kind, const DISPPARAMS* call);

  const GUID& interfaceId_;
  std::span<const Member> members_;
  LiveObject live_;
};

}  // namespace server::com
