#pragma once

#include <cstdint>

namespace data {

// The codes under which the session server maps texts: two for texts on their way in, the others
// for texts read for display.
enum DisplayCode : std::int32_t {
  kDescriptionToStore = 0,
  kPermissionName = 101,
  kGroupName = 104,
  kGroupDescription = 105,
  kTypedGroupName = 114,
};

}  // namespace data
