#include "tests/program/dying_server/Relay.h"

#include <memory>
#include <utility>

#include "tests/program/dying_server/Pump.h"
#include "tests/program/dying_server/Signs.h"

namespace dying_server {
namespace {

// The server lives as long as there is a file of this name in its home folder.
constexpr const wchar_t* kSignOfLife = L"alive";

void DieIfDue() {
  if (!HasSign(kSignOfLife))
    RaiseException(static_cast<DWORD>(STATUS_ACCESS_VIOLATION), 0, 0, nullptr);
}

}  // namespace

Relay::Relay(Microsoft::WRL::ComPtr<IDispatch> target) : target_(std::move(target)) {}

STDMETHODIMP Relay::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP Relay::GetTypeInfo(UINT, LCID, ITypeInfo**) {
  return E_NOTIMPL;
}

STDMETHODIMP Relay::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                  DISPID* ids) {
  DieIfDue();
  return target_->GetIDsOfNames(reserved, names, count, locale, ids);
}

// The objects that the server answers with are handed on in the same way.
STDMETHODIMP Relay::Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind, DISPPARAMS* call,
                           VARIANT* answer, EXCEPINFO* exception, UINT* wrongArgument) {
  DieIfDue();
  PumpIfAsked();
  const HRESULT result =
      target_->Invoke(id, reserved, locale, kind, call, answer, exception, wrongArgument);
  if (SUCCEEDED(result) && answer != nullptr && answer->vt == VT_DISPATCH && answer->pdispVal) {
    Microsoft::WRL::ComPtr<IDispatch> object;
    object.Attach(answer->pdispVal);
    answer->pdispVal = std::make_unique<Relay>(std::move(object)).release();
  }
  return result;
}

}  // namespace dying_server
