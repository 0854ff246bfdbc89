#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <utility>

#include "tests/support/data/RawDatabase.h"

namespace test_support {

struct AccountRecord {
  std::wstring name;
  std::wstring addition;  // full name or description, empty for none
  std::wstring password;  // as stored
  bool deleted = false;

  bool operator==(const AccountRecord&) const = default;
};

// For the test's log.
std::ostream& operator<<(std::ostream& out, const AccountRecord& record);

// All that the program reads and writes, as the database holds it: read past the program and its
// session server.
struct Tables {
  using Accounts = std::map<std::int32_t, AccountRecord>;
  using Links = std::set<std::pair<std::int32_t, std::int32_t>>;

  Accounts users;
  Accounts groups;
  std::map<std::int32_t, std::wstring> permissions;
  Links memberships;                                                  // user, group
  Links userPermissions;                                              // user, permission
  Links groupPermissions;                                             // group, permission
  std::map<std::pair<int, std::wstring>, std::wstring> displayTexts;  // code, given

  bool operator==(const Tables&) const = default;

  // The display form of a text; the text itself where there is none.
  std::wstring Display(int code, const std::wstring& text) const;
  static bool IsLiving(const Accounts& accounts, std::int32_t id);
};

Tables ReadTables(test_support::RawDatabase& raw);

}  // namespace test_support
