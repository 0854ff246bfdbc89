#pragma once

#include <cstddef>

namespace com {

// The members that the program calls: those of the session server, of its connection and of a
// result set.
enum class Member : std::size_t {
  kReadCommandLine,
  kOpenSession,
  kGetRights,
  kSetMode,
  kGetSessionUserText,
  kDatabaseConnection,
  kNewIdentifier,
  kEncryptPassword,
  kDecryptPassword,
  kGetDisplayName,
  kShowAbout,

  kOpenResultSet,
  kExecute,
  kBeginRead,
  kEndRead,

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

inline constexpr std::size_t kMemberCount = static_cast<std::size_t>(Member::kClose) + 1;

// The name that servers know the member by.
const wchar_t* NameOf(Member member);

}  // namespace com
