#pragma once

#include "server/core/Engine.h"

namespace server {

// The rights value that lets a session administer users.
constexpr int kAdministerRight = 4;

// Creates all tables, views, indexes and counters in an empty database, inside the caller's
// transaction.
void CreateSchema(Engine& engine);

}  // namespace server
