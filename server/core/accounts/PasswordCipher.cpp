#include "server/core/accounts/PasswordCipher.h"

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/accounts/Encoding.h"

namespace server {
namespace {

constexpr std::string_view kVersion = "v1:";

std::string BoundTo(std::int32_t userId) {
  return "password of user " + std::to_string(userId);
}

}  // namespace

std::wstring PasswordCipher::Encrypt(std::wstring_view plainText, std::int32_t userId) const {
  const std::string sealed = server::Encrypt(key_, data::ToUtf8(plainText), BoundTo(userId));
  return data::FromUtf8(std::string(kVersion) + ToBase64(sealed));
}

std::wstring PasswordCipher::Decrypt(std::wstring_view storedText, std::int32_t userId) const {
  const std::string stored = data::ToUtf8(storedText);
  if (stored.empty()) Fail(kPasswordUnreadable);
  if (!stored.starts_with(kVersion)) Fail(kPasswordVersion);
  const auto sealed = FromBase64(std::string_view(stored).substr(kVersion.size()));
  if (!sealed) Fail(kPasswordUnreadable);
  const auto plain = server::Decrypt(key_, *sealed, BoundTo(userId));
  if (!plain) Fail(kPasswordUnreadable);
  return data::FromUtf8(*plain);
}

}  // namespace server
