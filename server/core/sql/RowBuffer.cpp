#include "server/core/sql/RowBuffer.h"

#include <algorithm>
#include <variant>

#include "server/core/sql/NameOrder.h"

namespace server {
namespace {

// Any order serves that tells different values apart: a null is no empty text.
int Compare(const data::ColumnValue& left, const data::ColumnValue& right) {
  const auto kind = [](const data::ColumnValue& value) {
    return value.IsNull() ? 0 : value.IsNumber() ? 1 : 2;
  };
  if (kind(left) != kind(right)) return kind(left) < kind(right) ? -1 : 1;
  if (left.Number() != right.Number()) return left.Number() < right.Number() ? -1 : 1;
  return left.BorrowedText().compare(right.BorrowedText());
}

}  // namespace

void RowBuffer::Fill(Cursor& cursor) {
  do Add(cursor, cursor.Columns());
  while (cursor.Get().Step());
}

void RowBuffer::Add(Cursor& cursor, std::size_t columns) {
  columns_ = columns;
  for (std::size_t column = 0; column < columns_; ++column) {
    const data::ColumnValue value = cursor.Read(static_cast<int>(column));
    const std::wstring_view text = value.BorrowedText();
    if (text.empty()) {
      cells_.push_back(value);
      continue;
    }
    const std::size_t bytes = text.size() * sizeof(wchar_t);
    auto* const kept = static_cast<wchar_t*>(texts_.allocate(bytes, alignof(wchar_t)));
    std::copy(text.begin(), text.end(), kept);
    textBytes_ += bytes;
    cells_.emplace_back(std::wstring_view(kept, text.size()));
  }
  order_.push_back(order_.size());
}

std::size_t RowBuffer::Bytes() const {
  return cells_.size() * sizeof cells_[0] + order_.size() * sizeof order_[0] + textBytes_;
}

bool RowBuffer::RowBefore(std::size_t left, std::size_t right) const {
  for (std::size_t column = 0; column < columns_; ++column) {
    const int order = Compare(cells_[left * columns_ + column], cells_[right * columns_ + column]);
    if (order != 0) return order < 0;
  }
  return false;
}

void RowBuffer::RemoveDoubles() {
  std::stable_sort(order_.begin(), order_.end(),
                   [this](std::size_t left, std::size_t right) { return RowBefore(left, right); });
  const auto same = [this](std::size_t left, std::size_t right) { return !RowBefore(left, right); };
  order_.erase(std::unique(order_.begin(), order_.end(), same), order_.end());
  std::sort(order_.begin(), order_.end());
}

void RowBuffer::Sort(std::size_t column) {
  NameOrder names;
  for (std::size_t row = 0; row < order_.size(); ++row) {
    const data::ColumnValue& first = cells_[row * columns_];
    names.Add(cells_[row * columns_ + column].BorrowedText(),
              first.IsNumber() ? first.Number() : 0);
  }
  order_ = names.Sorted();
  current_ = 0;
}

data::ColumnValue RowBuffer::Read(int column) const {
  return cells_[CellOf(static_cast<std::size_t>(column))];
}

void RowBuffer::Change(std::size_t column, const data::FieldValue& value) {
  data::ColumnValue& held = cells_[CellOf(column)];
  if (const auto* number = std::get_if<std::int32_t>(&value)) {
    held = data::ColumnValue(*number);
  } else if (const auto* text = std::get_if<std::wstring>(&value)) {
    held = data::ColumnValue(changedTexts_.emplace_back(*text));
  } else {
    held = {};
  }
}

}  // namespace server
