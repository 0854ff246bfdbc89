#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace data {

// The tables that the program writes to.
enum class Table {
  kUsers,
  kGroups,
  kMemberships,
  kUserPermissions,
  kGroupPermissions,
  kOther,
};

// What one of the program's statements is about, read from its text.
struct StatementSubject {
  Table table = Table::kOther;  // of several the first one named
  // The columns that it selects, without their table's name; those of * are the link's two.
  std::vector<std::wstring> columns;
  // The identifiers that its condition asks for, by column.
  std::vector<std::pair<std::wstring, std::int32_t>> where;
};

// statement is one that MSQLStatement has built, with whatever names and identifiers in it. Of any
// other the answer is as much as can be recognised.
StatementSubject SubjectOf(std::wstring_view statement);

}  // namespace data
