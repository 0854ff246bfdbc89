#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string_view>

#include "server/core/sessions/DataSource.h"
#include "server/core/sql/Engine.h"

namespace server {

// Opens the engine that a data source's description asks for; an EngineFactory.
std::unique_ptr<Engine> OpenEngine(const DataSource& source, std::chrono::milliseconds lockWait);

// Creates a database file with the empty schema, and the data source that names it. The file must
// not hold a schema yet.
DataSource CreateDatabase(const DataSources& sources, std::string_view name,
                          const std::filesystem::path& file);

}  // namespace server
