#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "data/Value.h"
#include "server/core/sql/StatementCache.h"

namespace server {

// Rows taken over from a cursor, so that the cursor can be reset and its locks given back while the
// rows are still being walked.
class RowBuffer {
 public:
  // Takes over the cursor's current row and all behind it.
  void Fill(Cursor& cursor);
  void Clear();

  bool EndOfRows() const { return current_ >= rows_.size(); }
  void MoveNext() { ++current_; }
  data::ColumnValue Read(int column) const;
  // Notes what was written to a column of the current row.
  void Change(std::size_t column, const data::FieldValue& value);

 private:
  using Value = std::variant<std::monostate, std::int64_t, std::wstring>;

  std::vector<std::vector<Value>> rows_;
  std::size_t current_ = 0;
};

}  // namespace server
