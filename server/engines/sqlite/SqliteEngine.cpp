#include "server/engines/sqlite/SqliteEngine.h"

#include <string>

#include "server/core/sql/Schema.h"
#include "server/engines/sqlite/SqliteError.h"
#include "server/engines/sqlite/SqliteSettings.h"
#include "server/engines/sqlite/SqliteStatement.h"

namespace server {
namespace {

// Texts compare by their bytes.
constexpr SchemaWords kSchemaWords{"TEXT", "TEXT", "(NAME)", " WITHOUT ROWID"};

}  // namespace

SqliteEngine::SqliteEngine(const std::filesystem::path& file, Mode mode,
                           std::chrono::milliseconds lockWait) {
  const std::u8string name = file.u8string();
  // One session is one thread's, so SQLite need not guard each call.
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX |
                    (mode == Mode::kCreate ? SQLITE_OPEN_CREATE : 0);
  sqlite3* database = nullptr;
  const int result =
      sqlite3_open_v2(reinterpret_cast<const char*>(name.c_str()), &database, flags, nullptr);
  database_.reset(database);
  if (result != SQLITE_OK) FailOn(database);
  sqlite3_busy_timeout(database, static_cast<int>(lockWait.count()));
  ApplySettings(database);
  Run("SELECT count(*) FROM sqlite_master");
}

void SqliteEngine::CreateSchema() {
  for (const std::string& statement : Schema(kSchemaWords)) Run(statement.c_str());
}

std::unique_ptr<Statement> SqliteEngine::Prepare(std::string_view sql) {
  return std::make_unique<SqliteStatement>(database_.get(), sql);
}

std::int32_t SqliteEngine::RowsAffected() {
  return sqlite3_changes(database_.get());
}

void SqliteEngine::Commit() {
  // Some failures end a transaction by themselves; there is nothing left to commit then.
  if (sqlite3_get_autocommit(database_.get()) == 0) Run("COMMIT");
}

void SqliteEngine::Rollback() noexcept {
  if (sqlite3_get_autocommit(database_.get()) == 0) {
    sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
  }
}

void SqliteEngine::Run(const char* sql) {
  if (sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    FailOn(database_.get());
  }
}

}  // namespace server
