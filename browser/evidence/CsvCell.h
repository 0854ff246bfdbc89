#pragma once

#include <string>
#include <string_view>

namespace browser {

// A text as a cell of a table whose cells stand between semicolons, in UTF-8. One that a
// spreadsheet would take for a formula has an apostrophe before it, so that it is shown and not
// calculated.
std::string CsvCell(std::wstring_view text);

}  // namespace browser
