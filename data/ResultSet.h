#pragma once

#include <string_view>

#include "data/Value.h"

namespace data {

// The number of the error that Update raises when the row to be changed is no longer there, because
// somebody else was faster. A server that does not know it raises whatever its database says.
inline constexpr long kRowGone = -2147220969;  // 0x80040217

// A forward-walked set of rows. Closing is the destructor's work too; Close reports a failure.
class ResultSet {
 public:
  virtual ~ResultSet() = default;

  virtual bool EndOfRows() = 0;
  // position is zero-based. The value's text holds until the next move.
  virtual ColumnValue Column(int position) = 0;
  virtual void MoveNext() = 0;
  virtual void MoveFirst() = 0;

  // Starts a new row, or the change of the current one; SetColumn fills it and Update writes it.
  virtual void AddNew() = 0;
  virtual void Edit() = 0;
  virtual void SetColumn(std::wstring_view name, const FieldValue& value) = 0;
  virtual void SetColumn(int position, const FieldValue& value) = 0;
  virtual void Update() = 0;
  virtual void Close() = 0;
};

}  // namespace data
