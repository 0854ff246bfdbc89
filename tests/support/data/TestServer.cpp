#include "tests/support/data/TestServer.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "data/Text.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/accounts/Encoding.h"
#include "server/core/sql/Query.h"
#include "server/engines/odbc/OdbcEngine.h"

namespace test_support {
namespace {

std::string Folder() {
  const char* const folder = std::getenv("UADMIN_DATABASE_SERVER");
  return folder == nullptr ? std::string() : std::string(folder);
}

std::string FirstLine(const std::string& name) {
  std::ifstream file(Folder() + "/" + name);
  std::string line;
  if (!std::getline(file, line)) throw std::runtime_error("no database server in " + Folder());
  return line;
}

server::OdbcTarget TargetOf(const std::string& database) {
  server::OdbcTarget target;
  target.connectionString = FirstLine("connection") + ";Database=" + database;
  target.password = ServerDatabase::Password();
  return target;
}

// On the database that the server itself has.
void RunOnServer(const std::string& sql) {
  const bool postgresql = EngineUnderTest() == TestEngine::kPostgresql;
  server::OdbcConnection(TargetOf(postgresql ? "postgres" : "mysql")).Run(sql);
}

std::string NewName() {
  std::string name = "t";
  return name.append(server::ToHex(server::RandomBytes(8)));
}

// The server copies no database as a whole.
void CopyTables(const std::string& from, const std::string& to) {
  server::OdbcEngine engine(TargetOf(to));
  server::WriteTransaction transaction(engine);
  engine.CreateSchema();
  server::Run(engine, "DELETE FROM QRCOUNTER");
  for (const char* const table :
       {"QRUSER", "QRGROUP", "QRPERM", "QRUSGP", "QRUPRM", "QRGPRM", "QRCOUNTER", "QRDISPLAY"}) {
    server::Run(engine,
                std::string("INSERT INTO ") + table + " SELECT * FROM " + from + "." + table);
  }
  transaction.Commit();
}

}  // namespace

TestEngine EngineUnderTest() {
  static const TestEngine engine = [] {
    if (Folder().empty()) return TestEngine::kSqlite;
    return FirstLine("kind") == "postgresql" ? TestEngine::kPostgresql : TestEngine::kMariadb;
  }();
  return engine;
}

ServerDatabase::ServerDatabase() : name_(NewName()) {
  RunOnServer("CREATE DATABASE " + name_);
}

ServerDatabase::ServerDatabase(const ServerDatabase& original) : name_(NewName()) {
  if (EngineUnderTest() == TestEngine::kPostgresql) {
    RunOnServer("CREATE DATABASE " + name_ + " TEMPLATE " + original.name_);
  } else {
    RunOnServer("CREATE DATABASE " + name_);
    CopyTables(original.name_, name_);
  }
}

ServerDatabase::~ServerDatabase() {
  try {
    const bool postgresql = EngineUnderTest() == TestEngine::kPostgresql;
    RunOnServer("DROP DATABASE " + name_ + (postgresql ? " WITH (FORCE)" : ""));
  } catch (const std::exception&) {
    // The server goes with the tests, and all its databases with it.
  }
}

server::OdbcDescription ServerDatabase::Description() const {
  return {FirstLine("connection") + ";Database=" + name_, "", {}};
}

std::string ServerDatabase::Password() {
  return FirstLine("password");
}

}  // namespace test_support
