#include "com/LateBound.h"

#include <utility>

#include "com/CallGuard.h"
#include "com/ComError.h"
#include "data/RunTimeError.h"

using Microsoft::WRL::ComPtr;

namespace com {
namespace {

bool IsUnknownMember(HRESULT answer) {
  return answer == DISP_E_UNKNOWNNAME || answer == DISP_E_MEMBERNOTFOUND;
}

std::wstring Filled(std::wstring pattern, std::wstring_view value) {
  const std::size_t place = pattern.find(L"%1");
  if (place != std::wstring::npos) pattern.replace(place, 2, value);
  return pattern;
}

}  // namespace

LateBound::LateBound(ComPtr<IDispatch> object, std::shared_ptr<MemberIds> ids,
                     std::shared_ptr<ServerFate> fate)
    : object_(std::move(object)), ids_(std::move(ids)), fate_(std::move(fate)) {}

// A server that died in a call cannot be relied on to count its references either.
LateBound::~LateBound() {
  if (object_ == nullptr) return;
  IDispatch* const object = object_.Detach();
  if (fate_->exception == 0) fate_->exception = Guarded([&]() noexcept { object->Release(); });
}

HRESULT LateBound::Invoke(std::size_t member, VARIANT* reversed, std::size_t count,
                          VARIANT* result) {
  if (fate_->exception != 0) RaiseLost();
  DISPID id = DISPID_UNKNOWN;
  if (!ids_->Knows(member, id)) {
    HRESULT found = S_OK;
    fate_->exception = Guarded([&]() noexcept { found = ids_->Ask(object_.Get(), member, id); });
    if (fate_->exception != 0) RaiseLost();
    if (FAILED(found)) return found;
  }
  DISPPARAMS arguments{reversed, nullptr, static_cast<UINT>(count), 0};
  return InvokeOn(object_.Get(), id, arguments, result);
}

// A failure that the callee describes is raised here, where the description is at hand.
HRESULT LateBound::InvokeOn(IDispatch* object, DISPID id, DISPPARAMS& arguments,
                            VARIANT* result) const {
  EXCEPINFO details{};
  HRESULT answer = S_OK;
  const WORD kind = result == nullptr ? DISPATCH_METHOD : DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  fate_->exception = Guarded([&]() noexcept {
    answer = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &arguments, result, &details,
                            nullptr);
  });
  if (fate_->exception != 0) {
    if (result != nullptr) result->vt = VT_EMPTY;  // it may have died with half an answer
    RaiseLost();
  }
  if (answer == DISP_E_EXCEPTION) RaiseFailure(answer, details, object, fate_->texts.lost);
  return answer;
}

void LateBound::CallIfThere(std::size_t member) {
  const HRESULT answer = TryCall(member, nullptr);
  if (IsUnknownMember(answer)) return;
  Check(member, answer);
}

void LateBound::MakePlain(Variant& value) const {
  if ((value.vt & VT_BYREF) != 0) {
    Variant plain;
    CheckConversion(VariantCopyInd(&plain, &value));
    value = std::move(plain);
  }
  if (value.vt != VT_DISPATCH) return;
  const ComPtr<IDispatch> object = ObjectIn(value);
  value.Clear();
  DISPPARAMS none{};
  const HRESULT answer = InvokeOn(object.Get(), DISPID_VALUE, none, &value);
  if (FAILED(answer)) RaiseFailure(answer, object.Get(), fate_->texts.lost);
}

ComPtr<IDispatch> LateBound::ObjectIn(const VARIANT& value) const {
  if (value.vt != VT_DISPATCH && value.vt != VT_UNKNOWN) {
    throw data::RunTimeError(data::kObjectRequired);
  }
  if (value.punkVal == nullptr) throw data::RunTimeError(data::kObjectNotSet);
  ComPtr<IDispatch> object;
  HRESULT answer = S_OK;
  fate_->exception = Guarded([&]() noexcept {
    answer = value.punkVal->QueryInterface(IID_PPV_ARGS(object.GetAddressOf()));
  });
  if (fate_->exception != 0) RaiseLost();
  if (FAILED(answer)) RaiseFailure(answer, object_.Get(), fate_->texts.lost);
  return object;
}

void LateBound::Raise(std::size_t member, HRESULT answer) const {
  if (IsUnknownMember(answer)) {
    throw data::RunTimeError(data::kNoSuchMember,
                             Filled(fate_->texts.memberMissing, ids_->Name(member)));
  }
  RaiseFailure(answer, object_.Get(), fate_->texts.lost);
}

void LateBound::RaiseLost() const {
  throw data::RunTimeError(static_cast<long>(fate_->exception), fate_->texts.lost);
}

}  // namespace com
