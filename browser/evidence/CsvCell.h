#pragma once

#include <string>
#include <string_view>

namespace browser {

// What a table begins with, and each of its lines ends with.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
inline constexpr std::string_view kEndOfLine = "\r\n";

// A text as a cell of a table whose cells stand between semicolons, in UTF-8. One that a
// spreadsheet would take for a formula has an apostrophe before it, so that it is shown and not
// calculated.
std::string CsvCell(std::wstring_view text);

}  // namespace browser
