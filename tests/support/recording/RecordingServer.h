#pragma once

#include <memory>

#include "data/SessionServer.h"
#include "tests/support/recording/CallLog.h"

namespace test_support {

// Wraps a session server so that the log tells what it was asked; the log also decides what fails.
// The log outlives the server.
std::unique_ptr<data::SessionServer> Record(std::unique_ptr<data::SessionServer> server,
                                            CallLog& log);

}  // namespace test_support
