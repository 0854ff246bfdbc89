#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "server/core/sessions/DataSource.h"
#include "server/core/sql/Engine.h"

namespace server {

// Opens the engine on which a data source is kept. A lock held by somebody else is waited for up to
// lockWait. Raises what the engine says when there is no such database.
using EngineFactory = std::function<std::unique_ptr<Engine>(const DataSource& source,
                                                            std::chrono::milliseconds lockWait)>;

}  // namespace server
