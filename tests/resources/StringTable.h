#pragma once

#include <string>
#include <vector>

namespace resources_test {

struct TableEntry {
  int id;
  std::string text;  // UTF-8
};

// The string table's source, in the order it is written in.
const std::vector<TableEntry>& WrittenTable();

// The text that a program gets for a number, as UTF-8; empty when there is none.
std::string LoadedText(int id);

}  // namespace resources_test
