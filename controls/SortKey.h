#pragma once

#include <string>
#include <string_view>

namespace controls {

// The bytes by which a text is ordered: letters first whatever their case and accents, then
// accents, as a French reader expects a list.
std::string SortKey(std::wstring_view text);

}  // namespace controls
