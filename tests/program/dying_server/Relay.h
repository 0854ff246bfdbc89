#pragma once

#include <windows.h>

#include <objbase.h>

#include <oaidl.h>
#include <wrl/client.h>

#include "automation/ComObject.h"

namespace dying_server {

// An object of the reference session server, handed on to its client call by call as long as the
// server is to live. In the first call after that it goes wrong, and in every other one too.
class Relay : public automation::ComObject<IDispatch> {
 public:
  explicit Relay(Microsoft::WRL::ComPtr<IDispatch> target);

  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind, DISPPARAMS* call,
                      VARIANT* answer, EXCEPINFO* exception, UINT* wrongArgument) override;

 private:
  Microsoft::WRL::ComPtr<IDispatch> target_;
};

}  // namespace dying_server
