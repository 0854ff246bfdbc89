#include "browser/evidence/CsvCell.h"

#include "data/Text.h"

namespace browser {
namespace {

// What a formula begins with in one spreadsheet or another; the last four are the wide forms of the
// first.
constexpr std::wstring_view kFormulaSigns = L"=+-@\t\r\n\xFF1D\xFF0B\xFF0D\xFF20";
// What some take off before they look.
constexpr std::wstring_view kBlanks = L" \xA0";
// What a cell may not have in it unless it is in quotation marks; blanks would be taken off.
constexpr std::string_view kQuoted = ";\"\r\n\t ,'";

}  // namespace

std::string CsvCell(std::wstring_view text) {
  std::string cell;
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first != std::wstring_view::npos &&
      kFormulaSigns.find(text[first]) != std::wstring_view::npos) {
    cell = "'";
  }
  data::AppendAsUtf8(cell, text);
  if (cell.find_first_of(kQuoted) == std::string::npos) return cell;
  std::string quoted = "\"";
  for (const char letter : cell) {
    quoted += letter;
    if (letter == '"') quoted += letter;
  }
  quoted += '"';
  return quoted;
}

}  // namespace browser
