#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace data {

// What a column holds: nothing (a database null), a whole number or a text. A text is borrowed from
// the result set and holds until the set moves or is closed.
class ColumnValue {
 public:
  ColumnValue() = default;
  explicit ColumnValue(std::int64_t number) : kind_(Kind::kNumber), number_(number) {}
  explicit ColumnValue(std::wstring_view text) : kind_(Kind::kText), text_(text) {}

  bool IsNull() const { return kind_ == Kind::kNull; }
  // True for a null and for a text without characters.
  bool IsNullOrEmpty() const { return IsNull() || (kind_ == Kind::kText && text_.empty()); }
  // The value as text: empty for a null, decimal for a number.
  std::wstring Text() const;
  // The value as a 32-bit integer, a text trimmed of blanks and converted. Raises 13 for a null or
  // for a text that is no number, 6 for one that does not fit.
  std::int32_t Integer() const;

  // The value as it is, for passing it on without a copy: a number when IsNumber, else a text, of
  // which a null has no characters.
  bool IsNumber() const { return kind_ == Kind::kNumber; }
  std::int64_t Number() const { return number_; }
  std::wstring_view BorrowedText() const { return text_; }

 private:
  enum class Kind { kNull, kNumber, kText };

  Kind kind_ = Kind::kNull;
  std::int64_t number_ = 0;
  std::wstring_view text_;
};

// What is written to a column: a null, a 32-bit integer or a text.
using FieldValue = std::variant<std::monostate, std::int32_t, std::wstring>;

}  // namespace data
