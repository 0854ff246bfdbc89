#include "com/ComResultSet.h"

#include "automation/Bstr.h"
#include "com/Conversion.h"
#include "data/RunTimeError.h"

using automation::Argument;
using automation::Bstr;
using automation::NullArgument;
using automation::Variant;

namespace com {
namespace {

// No statement has more columns than this; a position beyond is a mistake of the caller.
constexpr int kMostColumns = 4096;

}  // namespace

// The server frees a set that nobody refers to any longer; closing it first lets the statement go
// at once. A failure has nobody left to be told.
ComResultSet::~ComResultSet() {
  try {
    if (open_) object_.CallIfThere(Member::kClose);
  } catch (const data::RunTimeError&) {
  }
}

bool ComResultSet::EndOfRows() {
  Variant end;
  object_.Read(Member::kEndOfRows, end);
  return ToBoolean(end);
}

data::ColumnValue ComResultSet::Column(int position) {
  if (position < 0 || position >= kMostColumns) {
    throw data::RunTimeError(data::kSubscriptOutOfRange);
  }
  const auto index = static_cast<std::size_t>(position);
  Slot& slot = SlotAt(index);
  if (slot.row != row_) {
    slot.value.Clear();
    object_.Read(Member::kColumn, slot.value, Argument(position));
    slot.row = row_;
  }
  return ToColumnValue(slot.value);
}

ComResultSet::Slot& ComResultSet::SlotAt(std::size_t position) {
  if (position < firstSlots_.size()) return firstSlots_[position];
  const std::size_t further = position - firstSlots_.size();
  if (further >= furtherSlots_.size()) furtherSlots_.resize(further + 1);
  return furtherSlots_[further];
}

void ComResultSet::MoveNext() {
  Change(Member::kMoveNext);
}

void ComResultSet::MoveFirst() {
  Change(Member::kMoveFirst);
}

void ComResultSet::AddNew() {
  Change(Member::kAddNew);
}

void ComResultSet::Edit() {
  Change(Member::kEdit);
}

void ComResultSet::Update() {
  Change(Member::kUpdate);
}

void ComResultSet::SetColumn(std::wstring_view name, const data::FieldValue& value) {
  const Bstr text(name);
  SetColumn(Argument(text), value);
}

void ComResultSet::SetColumn(int position, const data::FieldValue& value) {
  SetColumn(Argument(position), value);
}

void ComResultSet::SetColumn(const VARIANT& column, const data::FieldValue& value) {
  ++row_;
  if (const auto* number = std::get_if<std::int32_t>(&value)) {
    object_.Call(Member::kSetColumn, column, Argument(*number));
  } else if (const auto* text = std::get_if<std::wstring>(&value)) {
    const Bstr copy(*text);
    object_.Call(Member::kSetColumn, column, Argument(copy));
  } else {
    object_.Call(Member::kSetColumn, column, NullArgument());
  }
}

void ComResultSet::Close() {
  open_ = false;
  object_.Call(Member::kClose);
}

// What a call may change is asked for again after it.
void ComResultSet::Change(Member member) {
  ++row_;
  object_.Call(member);
}

}  // namespace com
