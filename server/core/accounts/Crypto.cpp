#include "server/core/accounts/Crypto.h"

#include "server/core/Errors.h"
#include "server/core/accounts/Aes256Gcm.h"

namespace server {

bool SameBytes(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return false;
  unsigned char difference = 0;
  for (std::size_t i = 0; i < left.size(); ++i) {
    difference |= static_cast<unsigned char>(left[i] ^ right[i]);
  }
  return difference == 0;
}

std::string Encrypt(std::string_view key, std::string_view plain, std::string_view bound) {
  const std::string nonce = RandomBytes(kNonceSize);
  const std::optional<std::string> sealed = Seal(key, nonce, plain, bound);
  if (!sealed) Fail(kKeyFileUnreadable);
  return nonce + *sealed;
}

std::optional<std::string> Decrypt(std::string_view key, std::string_view sealed,
                                   std::string_view bound) {
  if (sealed.size() < kNonceSize + kTagSize) return std::nullopt;
  return Unseal(key, sealed.substr(0, kNonceSize), sealed.substr(kNonceSize), bound);
}

}  // namespace server
