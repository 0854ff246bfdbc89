#pragma once

#include <sqlite3.h>

namespace server {

// Sets up a new connection as the session server has it: hardened against statements that reach
// beyond the data, and with its caches. Whoever compares himself with the server calls this too.
// Raises a database error.
void ApplySettings(sqlite3* database);

}  // namespace server
