#pragma once

#include <span>

namespace server {

// The statements that create the schema, in order.
std::span<const char* const> SqliteSchema();

}  // namespace server
