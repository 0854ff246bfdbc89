#include "com/ErrorObject.h"

#include <oleauto.h>

#include "automation/Bstr.h"

namespace com {

ErrorObject::ErrorObject(ServerState& server) : server_(server), info_(server) {
  server_.Touch([this]() noexcept {
    if (GetErrorInfo(0, info_.Out()) != S_OK) *info_.Out() = nullptr;
  });
}

std::wstring ErrorObject::Text() const {
  BSTR given = nullptr;  // left alone where the server dies of the question
  server_.Touch([&]() noexcept { info_.Get()->GetDescription(&given); });
  automation::Bstr text;
  *text.Out() = given;
  return std::wstring(text.View());
}

}  // namespace com
