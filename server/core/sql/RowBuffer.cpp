#include "server/core/sql/RowBuffer.h"

#include "data/Text.h"

namespace server {

void RowBuffer::Fill(Cursor& cursor) {
  Clear();
  do {
    std::vector<Value>& row = rows_.emplace_back();
    for (std::size_t column = 0; column < cursor.Columns(); ++column) {
      const Field field = cursor.Get().Read(static_cast<int>(column));
      if (field.kind == FieldKind::kNull) row.emplace_back();
      if (field.kind == FieldKind::kNumber) row.emplace_back(field.number);
      if (field.kind == FieldKind::kText) row.emplace_back(data::FromUtf8(field.text));
    }
  } while (cursor.Get().Step());
}

void RowBuffer::Clear() {
  rows_.clear();
  current_ = 0;
}

data::ColumnValue RowBuffer::Read(int column) const {
  const Value& value = rows_[current_][static_cast<std::size_t>(column)];
  if (const auto* number = std::get_if<std::int64_t>(&value)) return data::ColumnValue(*number);
  if (const auto* text = std::get_if<std::wstring>(&value)) return data::ColumnValue(*text);
  return {};
}

void RowBuffer::Change(std::size_t column, const data::FieldValue& value) {
  Value& held = rows_[current_][column];
  if (const auto* number = std::get_if<std::int32_t>(&value)) {
    held = std::int64_t{*number};
  } else if (const auto* text = std::get_if<std::wstring>(&value)) {
    held = *text;
  } else {
    held = std::monostate{};
  }
}

}  // namespace server
