#pragma once

#include <cstdint>

#include "server/core/sql/Engine.h"
#include "server/engines/odbc/Dialect.h"
#include "server/engines/odbc/OdbcConnection.h"

namespace server {

// What an engine and its statements share.
struct OdbcSession {
  OdbcConnection connection;
  const Dialect* dialect = nullptr;
  bool reading = false;  // in a reading transaction
  std::int32_t rowsAffected = 0;
};

}  // namespace server
