#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Helpers for the program's texts. A std::wstring holds UTF-16 code units on every platform, also
// where wchar_t is wider: lengths and positions then mean the same everywhere.
namespace data {

// UTF-8 to UTF-16. A malformed byte becomes U+FFFD.
std::wstring FromUtf8(std::string_view utf8);
void AppendUtf8(std::wstring& out, std::string_view utf8);

// UTF-16 to UTF-8. A lone surrogate becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);
void AppendAsUtf8(std::string& out, std::wstring_view text);

// Takes blanks (U+0020) off both ends and nothing else.
std::wstring_view Trim(std::wstring_view text);

// The decimal text of a number, without padding, and without sign when it is not negative.
std::wstring Decimal(std::int64_t number);

// The same for people to read: a no-break space stands between groups of three digits.
std::wstring GroupedDecimal(std::int64_t number);

// Converts a decimal text to a 32-bit integer after trimming it. Raises 13 when it is not a number
// and 6 when it does not fit.
std::int32_t ToInteger(std::wstring_view text);

}  // namespace data
