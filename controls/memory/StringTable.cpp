#include "controls/memory/StringTable.h"

#include <string_view>
#include <unordered_map>

#include "controls/memory/Utf16.h"

namespace controls {
namespace {

struct Entry {
  int id;
  std::string_view text;
};

constexpr Entry kEntries[] = {
#define UADMIN_STRING(id, text) {id, text},
#include "resources/strings_fr.h"
#undef UADMIN_STRING
};

std::unordered_map<int, std::wstring> MakeTable() {
  std::unordered_map<int, std::wstring> table;
  for (const Entry& entry : kEntries) table.emplace(entry.id, Utf16(entry.text));
  return table;
}

}  // namespace

std::wstring StringTableText(int id) {
  static const std::unordered_map<int, std::wstring> table = MakeTable();
  const auto found = table.find(id);
  return found == table.end() ? std::wstring() : found->second;
}

}  // namespace controls
