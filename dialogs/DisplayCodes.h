#pragma once

#include <cstdint>

namespace dialogs {

// The codes under which the session server maps texts for the dialogs.
enum DisplayCode : std::int32_t {
  kDescriptionToStore = 0,
  kPermissionName = 101,
  kGroupName = 104,
  kGroupDescription = 105,
  kTypedGroupName = 114,
};

}  // namespace dialogs
