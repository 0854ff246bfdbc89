#pragma once

#include <filesystem>
#include <string_view>

#include "server/core/DataSource.h"

namespace server {

// Creates a database file with the empty schema, and the data source that names it. The file must
// not hold a schema yet.
DataSource CreateDatabase(const DataSources& sources, std::string_view name,
                          const std::filesystem::path& file);

}  // namespace server
