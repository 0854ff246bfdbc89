#pragma once

#include <string>
#include <string_view>

namespace controls {

// UTF-8, as sources hold their texts, to UTF-16. The text is well-formed.
std::wstring Utf16(std::string_view utf8);

}  // namespace controls
