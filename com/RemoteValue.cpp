#include "com/RemoteValue.h"

#include <utility>

#include "com/Conversion.h"
#include "data/RunTimeError.h"

namespace com {

RemoteValue::RemoteValue(ServerState& server, VARIANT& value) : server_(server), value_(value) {
  value.vt = VT_EMPTY;
}

RemoteValue::~RemoteValue() {
  if (IsPlain(value_)) {
    VariantClear(&value_);
  } else {
    server_.TryTouch([this]() noexcept { VariantClear(&value_); });
  }
}

void RemoteValue::Dereference() {
  if ((value_.vt & VT_BYREF) == 0) return;
  VARIANT target;
  target.vt = VT_EMPTY;
  HRESULT copied = S_OK;
  server_.Touch([&]() noexcept { copied = VariantCopyInd(&target, &value_); });
  CheckConversion(copied);
  value_ = target;
}

RemotePointer<IDispatch> RemoteValue::TakeObject(HRESULT& result) {
  if (!IsObject()) throw data::RunTimeError(data::kObjectRequired);
  if (value_.punkVal == nullptr) throw data::RunTimeError(data::kObjectNotSet);
  result = S_OK;
  if (value_.vt == VT_DISPATCH) {
    value_.vt = VT_EMPTY;
    return RemotePointer<IDispatch>(server_, value_.pdispVal);
  }
  RemotePointer<IDispatch> object(server_);
  server_.Touch([&]() noexcept {
    result =
        value_.punkVal->QueryInterface(__uuidof(IDispatch), reinterpret_cast<void**>(object.Out()));
    if (FAILED(result)) *object.Out() = nullptr;
  });
  return object;
}

void RemoteValue::TakePlain(VARIANT& target) {
  if (!IsPlain(value_)) throw data::RunTimeError(data::kTypeMismatch);
  target = std::exchange(value_, VARIANT{});
}

}  // namespace com
