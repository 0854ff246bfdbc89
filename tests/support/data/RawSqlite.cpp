#include "tests/support/data/RawSqlite.h"

#include <stdexcept>

namespace test_support {
namespace {

int AddRow(void* rows, int columns, char** values, char**) {
  auto& row = static_cast<RawDatabase::RowTexts*>(rows)->emplace_back();
  for (int i = 0; i < columns; ++i) row.emplace_back(values[i] != nullptr ? values[i] : "NULL");
  return 0;
}

}  // namespace

RawSqlite::RawSqlite(const std::filesystem::path& file) {
  const std::u8string name = file.u8string();
  sqlite3* database = nullptr;
  const int result = sqlite3_open_v2(reinterpret_cast<const char*>(name.c_str()), &database,
                                     SQLITE_OPEN_READWRITE, nullptr);
  database_.reset(database);
  if (result != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database));
  sqlite3_busy_timeout(database, 5000);
  // What a test writes need not survive a power cut.
  Rows("pragma synchronous = off");
}

RawDatabase::RowTexts RawSqlite::Rows(const std::string& sql) {
  RawDatabase::RowTexts rows;
  if (sqlite3_exec(database_.get(), sql.c_str(), AddRow, &rows, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_.get()));
  }
  return rows;
}

}  // namespace test_support
