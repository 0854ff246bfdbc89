#pragma once

#include <sqlite3.h>

#include <memory>

#include "server/core/sql/Engine.h"

namespace server {

// A prepared statement of a SQLite database, which must outlive it.
class SqliteStatement final : public Statement {
 public:
  SqliteStatement(sqlite3* database, std::string_view sql);

  void Bind(int parameter, std::int64_t number) override;
  void Bind(int parameter, std::string_view text) override;
  void BindNull(int parameter) override;
  bool Step() override;
  Field Read(int column) override;
  void Reset() noexcept override { sqlite3_reset(statement_.get()); }

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  void Check(int result);

  sqlite3* database_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

}  // namespace server
