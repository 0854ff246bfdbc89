#pragma once

#include <optional>
#include <vector>

#include "data/Value.h"
#include "server/core/sql/Database.h"

namespace server {

// A row of a result set that is being added or changed: what was set so far, and the one statement
// that writes it.
class RowWriter {
 public:
  // table is where the rows go to, columns are those of the result set. keys holds the current
  // row's identifiers, in the order of the key columns; a new row has none.
  RowWriter(const SchemaTable& table, const std::vector<const SchemaColumn*>& columns,
            std::vector<std::int64_t> keys);

  // Notes the value for a column. Raises 13 or 6 for a text that is no number in a number's column.
  void Set(std::size_t column, const data::FieldValue& value);
  // Writes the row: an insertion, or a change by primary key that must find its row.
  void Write(Database& database) const;

  bool IsNew() const { return keys_.empty(); }
  // The values set, one place for each column of the result set.
  const std::vector<std::optional<data::FieldValue>>& Values() const { return values_; }

 private:
  void Insert(Database& database) const;
  void Change(Database& database) const;
  int BindValues(Statement& statement) const;

  const SchemaTable& table_;
  const std::vector<const SchemaColumn*>& columns_;
  std::vector<std::int64_t> keys_;
  std::vector<std::optional<data::FieldValue>> values_;
};

}  // namespace server
