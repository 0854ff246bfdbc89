#pragma once

#include <string_view>

namespace data {

// Whether a whole text matches a wildcard pattern, case included:
//   ?        any one character
//   *        any number of characters, also none
//   #        a digit, 0 to 9
//   [list]   one of the characters listed; a-z lists all between the two
//   [!list]  none of them
// Any other character matches itself, and so does one in brackets: [*]. A hyphen that stands first
// or last in a list, or after a range, is itself; a closing bracket cannot be listed. [] stands
// for nothing at all, [!] for the exclamation mark. A pattern with a bracket that is not closed,
// or with a range that runs downwards, is none and matches nothing. Characters are UTF-16 units.
bool Like(std::wstring_view text, std::wstring_view pattern);

}  // namespace data
