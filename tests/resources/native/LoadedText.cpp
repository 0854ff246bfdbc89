#include "StringTable.h"

namespace resources_test {

std::string LoadedText(int id) {
  for (const TableEntry& entry : WrittenTable()) {
    if (entry.id == id) return entry.text;
  }
  return {};
}

}  // namespace resources_test
