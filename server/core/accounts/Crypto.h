#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The few cryptographic operations that the session server is built on. Texts of bytes are
// std::strings.
namespace server {

constexpr std::size_t kKeySize = 32;
constexpr std::size_t kNonceSize = 12;
constexpr std::size_t kTagSize = 16;

// Random bytes fit for keys and tokens.
std::string RandomBytes(std::size_t count);

// SHA-256 of a text of bytes.
std::string Sha256(std::string_view bytes);

// Compares in a time that depends on the lengths only.
bool SameBytes(std::string_view left, std::string_view right);

// AES-256 in Galois/counter mode. Encrypt draws a nonce and returns nonce, encrypted bytes and tag
// in one; Decrypt gives nothing back when anything of it, the key or bound is not what it was.
std::string Encrypt(std::string_view key, std::string_view plain, std::string_view bound);
std::optional<std::string> Decrypt(std::string_view key, std::string_view sealed,
                                   std::string_view bound);

}  // namespace server
