#pragma once

#include <string>

#include "server/core/sessions/DataSource.h"

namespace test_support {

enum class TestEngine { kSqlite, kPostgresql, kMariadb };

// The engine that this run of the tests is on: the one of the database server that
// scripts/database-server keeps in the folder UADMIN_DATABASE_SERVER names; without that, SQLite.
TestEngine EngineUnderTest();

// A database of its own on that server, empty, which goes with this object.
class ServerDatabase {
 public:
  ServerDatabase();
  // A copy of another database, which nobody may be connected to.
  explicit ServerDatabase(const ServerDatabase& original);
  ~ServerDatabase();
  ServerDatabase& operator=(const ServerDatabase&) = delete;

  // How it is reached, and by whose password: by a user who may do everything.
  server::OdbcDescription Description() const;
  static std::string Password();

 private:
  std::string name_;
};

}  // namespace test_support
