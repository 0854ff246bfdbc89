#pragma once

#include <optional>
#include <string>
#include <string_view>

// Bytes as text and back.
namespace server {

std::string ToHex(std::string_view bytes);

std::string ToBase64(std::string_view bytes);
// Nothing for a text that is not exactly what ToBase64 gives.
std::optional<std::string> FromBase64(std::string_view text);

}  // namespace server
