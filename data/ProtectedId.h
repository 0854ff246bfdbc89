#pragma once

#include <cstdint>

namespace data {

// Whether an identifier is that of a protected account. One that was not found is 0 and protects
// nothing, not even an account of number 0.
constexpr bool IsProtectedId(std::int32_t protectedId, std::int32_t id) {
  return protectedId != 0 && protectedId == id;
}

}  // namespace data
