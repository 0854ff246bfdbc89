#include "server/engines/sqlite/SqliteSettings.h"

#include "server/engines/sqlite/SqliteError.h"

namespace server {
namespace {

constexpr const char* kSettings[] = {
    "PRAGMA foreign_keys = ON",
    // 64 MB hold the largest databases whole: reading a page again is slow where files are
    // emulated. A memory map would be a little faster still, but a file cut short would then end
    // the process.
    "PRAGMA cache_size = -65536",
    "PRAGMA temp_store = MEMORY",
};

}  // namespace

void ApplySettings(sqlite3* database) {
  sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
  for (const char* const setting : kSettings) {
    if (sqlite3_exec(database, setting, nullptr, nullptr, nullptr) != SQLITE_OK) FailOn(database);
  }
}

}  // namespace server
