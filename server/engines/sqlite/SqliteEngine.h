#pragma once

#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <memory>

#include "server/core/sql/Engine.h"

namespace server {

// A SQLite database file. The journal is SQLite's rollback journal: the database stays one file
// that can be copied and put on a share, and the reading transaction around a big read makes up for
// what a write-ahead log would save.
class SqliteEngine final : public Engine {
 public:
  enum class Mode { kExisting, kCreate };

  // Opens a database file and reads its head, so that what is no database is found out at once.
  // A lock held by somebody else is waited for up to lockWait.
  SqliteEngine(const std::filesystem::path& file, Mode mode, std::chrono::milliseconds lockWait);

  void CreateSchema() override;
  bool ReadsAhead() const override { return false; }
  std::unique_ptr<Statement> Prepare(std::string_view sql) override;
  std::int32_t RowsAffected() override;
  void BeginReading() override { Run("BEGIN"); }
  void BeginWriting() override { Run("BEGIN IMMEDIATE"); }
  void Commit() override;
  void Rollback() noexcept override;

 private:
  struct Closer {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };

  void Run(const char* sql);

  std::unique_ptr<sqlite3, Closer> database_;
};

}  // namespace server
