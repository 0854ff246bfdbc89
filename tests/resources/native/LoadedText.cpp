#include "StringTable.h"

std::string LoadedText(int id) {
  for (const TableEntry& entry : WrittenTable()) {
    if (entry.id == id) return entry.text;
  }
  return {};
}
