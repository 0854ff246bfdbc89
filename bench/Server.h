#pragma once

#include <memory>

#include "data/SessionServer.h"
#include "tests/support/data/SampleDatabase.h"

namespace bench {

// The session server as the measured program has it: the reference server itself natively, on
// Windows the registered one by COM.
std::unique_ptr<data::SessionServer> CreateServer(const test_support::SampleDatabase& database);

}  // namespace bench
