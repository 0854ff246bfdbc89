#pragma once

#include <cstdint>

#include "server/core/sql/Engine.h"

namespace server {

// The rights value that lets a session administer users.
constexpr int kAdministerRight = 4;

// The rights mask of a user: the values of all permissions, his own and those of his living groups,
// joined bit by bit.
std::int32_t RightsOf(Engine& engine, std::int32_t userId);

}  // namespace server
