#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/mGlobal.h"

namespace browser {

// A table of texts, as somebody sees it who has searched and sorted it.
struct ShownTable {
  std::wstring title;
  std::wstring heading;  // what it is about
  std::wstring notice;   // a warning, empty for none
  std::wstring content;  // how many of the rows there are are shown
  std::wstring search;   // what was searched for, empty for nothing
  std::vector<std::wstring> columns;
  int rows = 0;
  // The text of a row, from 0, in a column, from 0. It outlives the writing.
  std::function<const std::wstring&(int row, int column)> Text;
};

// Writes the table to a file: a page where its name is that of one, otherwise cells between
// semicolons. The file takes its place when it is whole; a failure is a RunTimeError.
void WriteTableFile(const app::mGlobal& global, const ShownTable& table, const std::wstring& path);

}  // namespace browser
