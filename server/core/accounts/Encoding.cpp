#include "server/core/accounts/Encoding.h"

#include <cstdint>

namespace server {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";
constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::uint32_t Byte(std::string_view bytes, std::size_t i) {
  return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U;
}

}  // namespace

std::string ToHex(std::string_view bytes) {
  std::string text;
  for (const char letter : bytes) {
    const auto byte = static_cast<unsigned char>(letter);
    text += kHexDigits[byte >> 4];
    text += kHexDigits[byte & 15U];
  }
  return text;
}

std::string ToBase64(std::string_view bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::uint32_t group =
        (Byte(bytes, i) << 16) | (Byte(bytes, i + 1) << 8) | Byte(bytes, i + 2);
    text += kDigits[group >> 18];
    text += kDigits[(group >> 12) & 63U];
    text += i + 1 < bytes.size() ? kDigits[(group >> 6) & 63U] : '=';
    text += i + 2 < bytes.size() ? kDigits[group & 63U] : '=';
  }
  return text;
}

std::optional<std::string> FromBase64(std::string_view text) {
  std::string bytes;
  std::uint32_t group = 0;
  int bits = 0;
  for (const char letter : text.substr(0, text.find('='))) {
    const std::size_t digit = kDigits.find(letter);
    if (digit == std::string_view::npos) return std::nullopt;
    group = (group << 6) | static_cast<std::uint32_t>(digit);
    bits += 6;
    if (bits < 8) continue;
    bits -= 8;
    bytes += static_cast<char>((group >> bits) & 0xFFU);
  }
  // Writing it again shows at once wrong lengths, wrong padding and stray bits.
  if (ToBase64(bytes) != text) return std::nullopt;
  return bytes;
}

}  // namespace server
