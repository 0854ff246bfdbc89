#include "server/engines/Engines.h"

#include "server/core/sql/Query.h"
#include "server/engines/sqlite/SqliteEngine.h"

namespace server {

std::unique_ptr<Engine> OpenEngine(const DataSource& source, std::chrono::milliseconds lockWait) {
  return std::make_unique<SqliteEngine>(source.database, SqliteEngine::Mode::kExisting, lockWait);
}

DataSource CreateDatabase(const DataSources& sources, std::string_view name,
                          const std::filesystem::path& file) {
  std::error_code ignored;  // a folder that cannot be made shows when the file is opened
  std::filesystem::create_directories(std::filesystem::absolute(file).parent_path(), ignored);
  SqliteEngine engine(file, SqliteEngine::Mode::kCreate, std::chrono::seconds(5));
  WriteTransaction transaction(engine);
  engine.CreateSchema();
  transaction.Commit();
  return sources.Create(name, file);
}

}  // namespace server
