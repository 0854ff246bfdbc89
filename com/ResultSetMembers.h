#pragma once

#include <cstddef>

namespace com {

// The members of a result set, and their names in the same order.
enum ResultSetMember : std::size_t {
  kEndOfRows,
  kColumn,
  kMoveNext,
  kMoveFirst,
  kAddNew,
  kEdit,
  kSetColumn,
  kUpdate,
  kClose,
};

inline constexpr const wchar_t* kResultSetNames[] = {
    L"EndOfRows", L"Column",    L"MoveNext", L"MoveFirst", L"AddNew",
    L"Edit",      L"SetColumn", L"Update",   L"Close",
};

}  // namespace com
