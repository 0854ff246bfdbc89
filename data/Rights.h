#pragma once

#include <cstdint>

namespace data {

// Rights of a session's user, as bits of the mask that the session server gives.
enum Right : std::int32_t { kUserAdministration = 4 };

}  // namespace data
