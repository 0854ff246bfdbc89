#include "StringTable.h"

namespace resources_test {

const std::vector<TableEntry>& WrittenTable() {
  static const std::vector<TableEntry> table = {
#define UADMIN_STRING(id, text) {id, text},
#include "resources/strings_fr.h"
#undef UADMIN_STRING
  };
  return table;
}

}  // namespace resources_test
