#pragma once

#include <span>
#include <string_view>

// What a client may name in a statement: the tables and views of the schema with their columns, and
// what may be done to each. What is not listed here does not exist for a client.
namespace server {

enum class ColumnKind { kNumber, kText };

struct SchemaColumn {
  std::string_view name;
  ColumnKind kind;
  bool key;  // one of the columns that tell a row from all others
};

struct SchemaTable {
  std::string_view name;
  // The table that a result set's new and changed rows go to; empty where none may be written.
  std::string_view writesTo;
  // Condition that a row must meet to be changed, as SQL on that table; empty for none.
  std::string_view writesWhere;
  bool rowsDeletable;
  // False where the table has columns that are the server's own business.
  bool allColumnsListed;
  std::span<const SchemaColumn> columns;
};

// Find by name, ignoring the case of ASCII letters; null when there is none.
const SchemaTable* FindTable(std::string_view name);
const SchemaColumn* FindColumn(const SchemaTable& table, std::string_view name);

// Compares ASCII texts ignoring case.
bool SameName(std::string_view left, std::string_view right);

}  // namespace server
