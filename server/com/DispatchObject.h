#pragma once

#include <windows.h>

#include <oaidl.h>

#include <span>

#include "server/com/Arguments.h"
#include "server/com/LiveObject.h"

namespace server::com {

// A member of a late-bound object. Its number is its place in the object's list, from 1.
struct Member {
  const wchar_t* name;
  unsigned arguments;
};

// An object that is called by the names of its members. It is made with one reference, which
// belongs to its maker, and goes with the last one. Nothing thrown behind Run leaves it: failures
// are described in the automation manner.
class DispatchObject : public IDispatch, public ISupportErrorInfo {
 public:
  DispatchObject(const GUID& interfaceId, std::span<const Member> members)
      : interfaceId_(interfaceId), members_(members) {}
  virtual ~DispatchObject() = default;
  DispatchObject(const DispatchObject&) = delete;
  DispatchObject& operator=(const DispatchObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind,
                                   DISPPARAMS* call, VARIANT* answer, EXCEPINFO* exception,
                                   UINT* wrongArgument) override;

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;

 protected:
  // Does a member's work. The number of arguments is right, and answer is empty.
  virtual void Run(DISPID id, Arguments& arguments, VARIANT& answer) = 0;

 private:
  HRESULT Find(DISPID id, WORD kind, const DISPPARAMS* call) const;

  const GUID& interfaceId_;
  std::span<const Member> members_;
  ULONG references_ = 1;  // an object is used in the apartment that made it
  LiveObject live_;
};

}  // namespace server::com
