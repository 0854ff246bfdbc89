#pragma once

#include <cstdint>

namespace browser {

// The accounts that the program protects. An identifier of 0 was not found and protects nothing.
struct ProtectedAccounts {
  std::int32_t currentUserId = 0;
  std::int32_t adminUserId = 0;
  std::int32_t administratorsGroupId = 0;
  std::int32_t everyoneGroupId = 0;

  bool IsProtectedUser(std::int32_t userId) const;
  bool IsProtectedGroup(std::int32_t groupId) const;
};

}  // namespace browser
