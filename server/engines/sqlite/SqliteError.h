#pragma once

#include <sqlite3.h>

namespace server {

// Raises a database error with SQLite's message about the last call.
[[noreturn]] void FailOn(sqlite3* database);

}  // namespace server
