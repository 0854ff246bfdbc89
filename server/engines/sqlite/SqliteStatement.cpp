#include "server/engines/sqlite/SqliteStatement.h"

#include "server/engines/sqlite/SqliteError.h"

namespace server {

SqliteStatement::SqliteStatement(sqlite3* database, std::string_view sql) : database_(database) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                         SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK) {
    FailOn(database);
  }
  statement_.reset(statement);
}

void SqliteStatement::Bind(int parameter, std::int64_t number) {
  Check(sqlite3_bind_int64(statement_.get(), parameter, number));
}

void SqliteStatement::Bind(int parameter, std::string_view text) {
  // A text without characters may come without an address, which SQLite would take for a null.
  const char* const start = text.empty() ? "" : text.data();
  Check(sqlite3_bind_text64(statement_.get(), parameter, start, text.size(), SQLITE_TRANSIENT,
                            SQLITE_UTF8));
}

void SqliteStatement::BindNull(int parameter) {
  Check(sqlite3_bind_null(statement_.get(), parameter));
}

bool SqliteStatement::Step() {
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

Field SqliteStatement::Read(int column) {
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

void SqliteStatement::Check(int result) {
  if (result != SQLITE_OK) FailOn(database_);
}

}  // namespace server
