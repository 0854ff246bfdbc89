#pragma once

#include <cstdint>

namespace browser {

// The tabs by their number.
enum Tab : int { kUsersTab, kGroupsTab };

// An account, on the tab whose tree lists it.
struct Account {
  Tab tab = kUsersTab;
  std::int32_t id = 0;

  friend bool operator==(const Account&, const Account&) = default;
};

}  // namespace browser
