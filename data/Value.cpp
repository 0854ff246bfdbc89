#include "data/Value.h"

#include <limits>

#include "data/RunTimeError.h"
#include "data/Text.h"

namespace data {

std::wstring ColumnValue::Text() const {
  switch (kind_) {
    case Kind::kNull:
      return {};
    case Kind::kNumber:
      return Decimal(number_);
    case Kind::kText:
      return std::wstring(text_);
  }
  return {};
}

std::int32_t ColumnValue::Integer() const {
  if (kind_ == Kind::kText) return ToInteger(text_);
  if (kind_ == Kind::kNull) throw RunTimeError(kTypeMismatch);
  if (number_ > std::numeric_limits<std::int32_t>::max() ||
      number_ < std::numeric_limits<std::int32_t>::min()) {
    throw RunTimeError(kOverflow);
  }
  return static_cast<std::int32_t>(number_);
}

}  // namespace data
