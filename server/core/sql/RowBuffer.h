#pragma once

#include <cstddef>
#include <deque>
#include <memory_resource>
#include <string>
#include <vector>

#include "data/Value.h"
#include "server/core/sql/StatementCache.h"

namespace server {

// Rows taken over from a cursor, so that the cursor can be reset and its locks given back while the
// rows are still being walked.
class RowBuffer {
 public:
  // Takes over the cursor's current row and all that follow it.
  void Fill(Cursor& cursor);
  // Takes over the first columns of the cursor's current row alone, as many for each row.
  void Add(Cursor& cursor, std::size_t columns);
  // Leaves of rows that hold the same the first.
  void RemoveDoubles();
  // Puts all rows in the order of names, by the text in one column.
  void Sort(std::size_t column);
  // Goes back to the first row.
  void Rewind() { current_ = 0; }

  bool EndOfRows() const { return current_ >= order_.size(); }
  void MoveNext() { ++current_; }
  // A value of the current row; its text holds as long as the buffer.
  data::ColumnValue Read(int column) const;
  // Notes what was written to a column of the current row.
  void Change(std::size_t column, const data::FieldValue& value);

  // What the rows take, in bytes.
  std::size_t Bytes() const;

 private:
  bool RowBefore(std::size_t left, std::size_t right) const;
  std::size_t CellOf(std::size_t column) const { return order_[current_] * columns_ + column; }

  std::size_t columns_ = 0;
  std::vector<data::ColumnValue> cells_;  // row by row
  std::vector<std::size_t> order_;        // the rows in the order in which they are walked
  std::size_t current_ = 0;               // in order_
  std::pmr::monotonic_buffer_resource texts_;
  std::size_t textBytes_ = 0;
  std::deque<std::wstring> changedTexts_;
};

}  // namespace server
