#pragma once

#include <string>

namespace test_support {

// Has scripts/database-server do something ("kill", "resume", "start KIND", "stop") to the private
// server of a folder. Throws std::runtime_error where it fails.
void ControlServer(const std::string& command, const std::string& folder);

}  // namespace test_support
