#include "tests/program/dying_server/Relay.h"

#include <memory>
#include <string>
#include <utility>

namespace {

// The server lives as long as there is a file of this name in its home folder.
constexpr const wchar_t* kSignOfLife = L"alive";
constexpr const wchar_t* kHomeVariable = L"VARDEX_HOME";

bool IsAlive() {
  std::wstring home(MAX_PATH, L'\0');
  home.resize(GetEnvironmentVariableW(kHomeVariable, home.data(), MAX_PATH));
  const std::wstring sign = home + L"\\" + kSignOfLife;
  return !home.empty() && GetFileAttributesW(sign.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void DieIfDue() {
  if (!IsAlive()) RaiseException(static_cast<DWORD>(STATUS_ACCESS_VIOLATION), 0, 0, nullptr);
}

}  // namespace

Relay::Relay(Microsoft::WRL::ComPtr<IDispatch> target) : target_(std::move(target)) {}

STDMETHODIMP Relay::QueryInterface(REFIID id, void** out) {
  *out = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
  if (*out == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) Relay::AddRef() {
  return ++references_;
}

STDMETHODIMP_(ULONG) Relay::Release() {
  const ULONG left = --references_;
  if (left == 0) std::unique_ptr<Relay>{this}.reset();
  return left;
}

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
  const HRESULT result =
      target_->Invoke(id, reserved, locale, kind, call, answer, exception, wrongArgument);
  if (SUCCEEDED(result) && answer != nullptr && answer->vt == VT_DISPATCH && answer->pdispVal) {
    Microsoft::WRL::ComPtr<IDispatch> object;
    object.Attach(answer->pdispVal);
    answer->pdispVal = std::make_unique<Relay>(std::move(object)).release();
  }
  return result;
}
