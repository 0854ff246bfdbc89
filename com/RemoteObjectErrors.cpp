#include <string>
#include <string_view>
#include <utility>

#include "com/ErrorObject.h"
#include "com/FailureNumber.h"
#include "com/RemoteObject.h"
#include "data/RunTimeError.h"

namespace com {
namespace {

std::wstring Filled(std::wstring pattern, std::wstring_view value) {
  const std::size_t place = pattern.find(L"%1");
  if (place != std::wstring::npos) pattern.replace(place, 2, value);
  return pattern;
}

long DescribedNumber(const EXCEPINFO& details) {
  if (details.wCode != 0) return details.wCode;
  if (details.scode == 0) return data::kAutomationError;
  return FailureNumber(details.scode);
}

}  // namespace

void RemoteObject::RaiseCall(Member member, HRESULT answer) const {
  if (SaysThatTheMemberIsUnknown(answer)) {
    throw data::RunTimeError(data::kNoSuchMember,
                             Filled(server_->Texts().memberMissing, NameOf(member)));
  }
  RaiseResult(answer);
}

void RemoteObject::RaiseResult(HRESULT result) const {
  if (SaysThatTheObjectIsGone(result)) throw data::RunTimeError(result, server_->Texts().lost);
  if (SaysThatTheServerIsBusy(result)) throw data::RunTimeError(result, server_->Texts().busy);
  throw data::RunTimeError(FailureNumber(result), ErrorObjectText());
}

// The callee may have put its description off until it is asked for.
void RemoteObject::RaiseDescribed(automation::ExceptionDetails& details) const {
  if (details.pfnDeferredFillIn != nullptr) {
    const auto fillIn = [&]() noexcept { details.pfnDeferredFillIn(&details); };
    if (!server_->TryTouch(fillIn)) details.Forget();
    server_->CheckAlive();
  }
  const std::wstring fallback = ErrorObjectText();
  std::wstring text(automation::View(details.bstrDescription));
  throw data::RunTimeError(DescribedNumber(details), text.empty() ? fallback : std::move(text));
}

// The error object is always taken, so that it is not mistaken for the next failure's, and first of
// all, since every further call may replace it. It is believed only where the callee says that it
// left it there.
std::wstring RemoteObject::ErrorObjectText() const {
  const ErrorObject error(*server_);
  return error.IsThere() && LeavesErrorObjects() ? error.Text() : std::wstring();
}

bool RemoteObject::LeavesErrorObjects() const {
  RemotePointer<ISupportErrorInfo> support(*server_);
  HRESULT answer = S_OK;
  server_->Touch([&]() noexcept {
    answer = object_.Get()->QueryInterface(__uuidof(ISupportErrorInfo),
                                           reinterpret_cast<void**>(support.Out()));
    if (FAILED(answer)) *support.Out() = nullptr;
  });
  if (support.Get() == nullptr) return false;
  server_->Touch(
      [&]() noexcept { answer = support.Get()->InterfaceSupportsErrorInfo(IID_IDispatch); });
  return answer == S_OK;
}

}  // namespace com
