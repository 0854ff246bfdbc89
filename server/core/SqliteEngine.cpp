#include "server/core/SqliteEngine.h"

#include <string>

#include "data/Text.h"
#include "server/core/Errors.h"

namespace server {
namespace {

[[noreturn]] void FailOn(sqlite3* database) {
  FailDatabase(data::FromUtf8(sqlite3_errmsg(database)));
}

class SqliteStatement final : public Statement {
 public:
  SqliteStatement(sqlite3* database, std::string_view sql) : database_(database) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                           SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK) {
      FailOn(database);
    }
    statement_.reset(statement);
  }

  void Bind(int parameter, std::int64_t number) override {
    Check(sqlite3_bind_int64(statement_.get(), parameter, number));
  }
  void Bind(int parameter, std::string_view text) override {
    // A text without characters may come without an address, which SQLite would take for a null.
    const char* const start = text.empty() ? "" : text.data();
    Check(sqlite3_bind_text64(statement_.get(), parameter, start, text.size(), SQLITE_TRANSIENT,
                              SQLITE_UTF8));
  }
  void BindNull(int parameter) override { Check(sqlite3_bind_null(statement_.get(), parameter)); }

  bool Step() override {
    const int result = sqlite3_step(statement_.get());
    if (result == SQLITE_ROW) return true;
    if (result == SQLITE_DONE) return false;
    try {
      FailOn(database_);
    } catch (...) {
      Reset();
      throw;
    }
  }

  Field Read(int column) override {
    sqlite3_stmt* const statement = statement_.get();
    switch (sqlite3_column_type(statement, column)) {
      case SQLITE_NULL:
        return {};
      case SQLITE_INTEGER:
        return {FieldKind::kNumber, sqlite3_column_int64(statement, column), {}};
      default: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
        return {FieldKind::kText, 0, {text != nullptr ? text : "", text != nullptr ? size : 0}};
      }
    }
  }

  void Reset() noexcept override { sqlite3_reset(statement_.get()); }

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  void Check(int result) {
    if (result != SQLITE_OK) FailOn(database_);
  }

  sqlite3* database_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

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
  Harden();
  Run("SELECT count(*) FROM sqlite_master");
}

void SqliteEngine::Harden() {
  sqlite3* const database = database_.get();
  sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
  Run("PRAGMA foreign_keys = ON");
  // 64 MB hold the largest databases whole: reading a page again is dear where files are emulated.
  // A memory map would be a little faster still, but a file cut short would then end the process.
  Run("PRAGMA cache_size = -65536");
  Run("PRAGMA temp_store = MEMORY");
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
