#include "server/engines/Engines.h"

#include "server/core/sql/Query.h"
#include "server/engines/odbc/ConnectionString.h"
#include "server/engines/odbc/OdbcEngine.h"
#include "server/engines/sqlite/SqliteEngine.h"

namespace server {
namespace {

std::unique_ptr<Engine> OpenOdbc(const OdbcDescription& odbc, std::string_view password) {
  return std::make_unique<OdbcEngine>(OdbcTarget{odbc.connectionString, odbc.user,
                                                 std::string(password), odbc.connectTime,
                                                 odbc.statementTime, odbc.hosts});
}

void CreateSchema(Engine& engine) {
  WriteTransaction transaction(engine);
  engine.CreateSchema();
  transaction.Commit();
}

}  // namespace

std::unique_ptr<Engine> OpenEngine(const DataSource& source, std::chrono::milliseconds lockWait) {
  if (source.odbc) return OpenOdbc(*source.odbc, ReadDatabasePassword(source));
  return std::make_unique<SqliteEngine>(source.database, SqliteEngine::Mode::kExisting, lockWait);
}

bool NamesPassword(std::string_view connectionString) {
  return HasKeyword(connectionString, "PWD") || HasKeyword(connectionString, "PASSWORD");
}

DataSource CreateDatabase(const DataSources& sources, std::string_view name,
                          const OdbcDescription& odbc, std::string_view password) {
  CreateSchema(*OpenOdbc(odbc, password));
  return sources.Create(name, odbc, password);
}

DataSource CreateDatabase(const DataSources& sources, std::string_view name,
                          const std::filesystem::path& file) {
  std::error_code ignored;  // a folder that cannot be made shows when the file is opened
  std::filesystem::create_directories(std::filesystem::absolute(file).parent_path(), ignored);
  SqliteEngine engine(file, SqliteEngine::Mode::kCreate, std::chrono::seconds(5));
  CreateSchema(engine);
  return sources.Create(name, file);
}

}  // namespace server
