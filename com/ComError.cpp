#include "com/ComError.h"

#include <wrl/client.h>

#include "com/Bstr.h"
#include "com/CallGuard.h"
#include "data/RunTimeError.h"

using Microsoft::WRL::ComPtr;

namespace com {
namespace {

// The text of the thread's error object. The object is always taken, so that an old one is not
// mistaken for the next failure's, but believed only when the callee says that it left it there.
std::wstring ErrorInfoText(IDispatch* object) {
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.GetAddressOf()) != S_OK) return {};
  ComPtr<ISupportErrorInfo> support;
  Bstr text;
  Guarded([&]() noexcept {
    if (FAILED(object->QueryInterface(IID_PPV_ARGS(support.GetAddressOf())))) return;
    if (support->InterfaceSupportsErrorInfo(IID_IDispatch) != S_OK) return;
    info->GetDescription(text.Out());
  });
  return std::wstring(text.View());
}

// Results of the automation run-time that have a standard number of their own. The control facility
// is the one that standard numbers travel in.
long NumberOf(HRESULT result) {
  if (FAILED(result) && HRESULT_FACILITY(result) == FACILITY_CONTROL) return HRESULT_CODE(result);
  switch (result) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
      return data::kNoSuchMember;
    case DISP_E_TYPEMISMATCH:
      return data::kTypeMismatch;
    case DISP_E_OVERFLOW:
      return data::kOverflow;
    case DISP_E_BADINDEX:
      return data::kSubscriptOutOfRange;
    case E_NOINTERFACE:
      return data::kNoAutomation;
    default:
      return result;
  }
}

bool SaysThatTheObjectIsGone(HRESULT result) {
  switch (result) {
    case RPC_E_DISCONNECTED:
    case RPC_E_SERVER_DIED:
    case RPC_E_SERVER_DIED_DNE:
    case RPC_E_SERVERFAULT:
    case CO_E_OBJNOTCONNECTED:
      return true;
    default:
      return result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE) ||
             result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED);
  }
}

// Asks the callee for what it put off, then takes its texts over.
std::wstring TakeDescription(EXCEPINFO& details) {
  if (details.pfnDeferredFillIn != nullptr) {
    Guarded([&]() noexcept { details.pfnDeferredFillIn(&details); });
  }
  Bstr description;
  *description.Out() = std::exchange(details.bstrDescription, nullptr);
  SysFreeString(std::exchange(details.bstrSource, nullptr));
  SysFreeString(std::exchange(details.bstrHelpFile, nullptr));
  return std::wstring(description.View());
}

long NumberOf(const EXCEPINFO& details) {
  if (details.wCode != 0) return details.wCode;
  return details.scode == 0 ? static_cast<long>(data::kAutomationError) : NumberOf(details.scode);
}

}  // namespace

void RaiseFailure(HRESULT result, EXCEPINFO& details, IDispatch* object,
                  const std::wstring& lostText) {
  if (result != DISP_E_EXCEPTION) RaiseFailure(result, object, lostText);
  std::wstring text = TakeDescription(details);
  const std::wstring fallback = ErrorInfoText(object);
  throw data::RunTimeError(NumberOf(details), text.empty() ? fallback : text);
}

void RaiseFailure(HRESULT result, IDispatch* object, const std::wstring& lostText) {
  if (SaysThatTheObjectIsGone(result)) throw data::RunTimeError(result, lostText);
  throw data::RunTimeError(NumberOf(result), ErrorInfoText(object));
}

void CheckConversion(HRESULT result) {
  if (SUCCEEDED(result)) return;
  throw data::RunTimeError(result == DISP_E_OVERFLOW ? data::kOverflow : data::kTypeMismatch);
}

}  // namespace com
