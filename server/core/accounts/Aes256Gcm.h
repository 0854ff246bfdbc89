#pragma once

#include <optional>
#include <string>
#include <string_view>

// AES-256 in Galois/counter mode as the platform has it: the system's own CNG on Windows, libgcrypt
// elsewhere. What one writes the other reads. The nonce has kNonceSize bytes, the tag kTagSize (see
// Crypto.h).
namespace server {

// The encrypted bytes and after them the tag; nothing when the key has not kKeySize bytes.
std::optional<std::string> Seal(std::string_view key, std::string_view nonce,
                                std::string_view plain, std::string_view bound);

// The plain bytes of what Seal gave; nothing when anything of it, the key, the nonce or bound is
// not what it was.
std::optional<std::string> Unseal(std::string_view key, std::string_view nonce,
                                  std::string_view sealed, std::string_view bound);

}  // namespace server
