#include "server/core/NewDatabase.h"

#include <chrono>
#include <filesystem>

#include "server/core/Query.h"
#include "server/core/Schema.h"
#include "server/core/SqliteEngine.h"

namespace server {

DataSource CreateDatabase(const DataSources& sources, std::string_view name,
                          const std::filesystem::path& file) {
  std::error_code ignored;  // a folder that cannot be made shows when the file is opened
  std::filesystem::create_directories(std::filesystem::absolute(file).parent_path(), ignored);
  SqliteEngine engine(file, SqliteEngine::Mode::kCreate, std::chrono::seconds(5));
  WriteTransaction transaction(engine);
  CreateSchema(engine);
  transaction.Commit();
  return sources.Create(name, file);
}

}  // namespace server
