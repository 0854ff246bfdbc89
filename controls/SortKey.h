#pragma once

#include <string>
#include <string_view>

namespace controls {

// The bytes by which a text is ordered: letters first whatever their case and accents, then
// accents, as a French reader expects a list. Signs, hyphen and apostrophe among them, come before
// digits and digits before letters; a ligature is its two letters. Over the system's tables this
// takes the flags NORM_IGNORECASE | SORT_STRINGSORT: without the second one hyphens and apostrophes
// count last.
std::string SortKey(std::wstring_view text);

}  // namespace controls
