#include "server/core/accounts/PasswordCipher.h"

#include "data/Text.h"
#include "data/Wipe.h"
#include "server/core/Errors.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/accounts/Encoding.h"

namespace server {
namespace {

constexpr std::string_view kVersion = "v1:";

std::string BoundTo(std::int32_t userId) {
  return "password of user " + std::to_string(userId);
}

// A plain password in bytes, which is overwritten at the end of its scope, also when an error ends
// it.
struct PlainBytes {
  std::string bytes;
  ~PlainBytes() { data::Wipe(bytes); }
};

}  // namespace

// Room for the longest form of every character, so that no smaller storage is left behind.
std::wstring PasswordCipher::Encrypt(std::wstring_view plainText, std::int32_t userId) const {
  PlainBytes plain;
  plain.bytes.reserve(3 * plainText.size());
  data::AppendAsUtf8(plain.bytes, plainText);
  const std::string sealed = server::Encrypt(key_, plain.bytes, BoundTo(userId));
  return data::FromUtf8(std::string(kVersion) + ToBase64(sealed));
}

std::wstring PasswordCipher::Decrypt(std::wstring_view storedText, std::int32_t userId) const {
  const std::string stored = data::ToUtf8(storedText);
  if (stored.empty()) Fail(kPasswordUnreadable);
  if (!stored.starts_with(kVersion)) Fail(kPasswordVersion);
  const auto sealed = FromBase64(std::string_view(stored).substr(kVersion.size()));
  if (!sealed) Fail(kPasswordUnreadable);
  auto opened = server::Decrypt(key_, *sealed, BoundTo(userId));
  if (!opened) Fail(kPasswordUnreadable);
  const PlainBytes plain{std::move(*opened)};
  data::Wipe(*opened);
  return data::FromUtf8(plain.bytes);
}

}  // namespace server
