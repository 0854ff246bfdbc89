#pragma once

#include <string>
#include <string_view>

namespace data {

// The bytes by which a text is ordered, the same on every system: letters first whatever their case
// and accents, then accents, as a French reader expects a list. Signs come before digits, and these
// before letters; a ligature is its two letters; other scripts come last. Texts that differ in case
// alone have one key. No byte is 0; keys are compared as unsigned bytes, as std::string does.
std::string CollationKey(std::wstring_view text);
// The same, added to the end of a text of bytes.
void AppendCollationKey(std::string& key, std::wstring_view text);

}  // namespace data
