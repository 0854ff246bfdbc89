#pragma once

#include <cstddef>

namespace com {

// The members of the session server, and their names in the same order.
enum SessionServerMember : std::size_t {
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
};

inline constexpr const wchar_t* kSessionServerNames[] = {
    L"ReadCommandLine",    L"OpenSession",        L"GetRights",     L"SetMode",
    L"GetSessionUserText", L"DatabaseConnection", L"NewIdentifier", L"EncryptPassword",
    L"DecryptPassword",    L"GetDisplayName",     L"ShowAbout",
};

}  // namespace com
