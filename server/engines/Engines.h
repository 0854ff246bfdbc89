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

// Whether an ODBC connection string names a password.
bool NamesPassword(std::string_view connectionString);

// Creates the schema in an empty database behind ODBC, and the data source that names it. Raises a
// database error that names what is in the way when the database holds a part of a schema.
DataSource CreateDatabase(const DataSources& sources, std::string_view name,
                          const OdbcDescription& odbc, std::string_view password);

// Creates a database file with the empty schema, and the data source that names it. The file must
// not hold a schema yet.
DataSource CreateDatabase(const DataSources& sources, std::string_view name,
                          const std::filesystem::path& file);

}  // namespace server
