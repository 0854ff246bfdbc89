#include "tests/support/network/DatabaseServer.h"

#include <cstdlib>
#include <stdexcept>

namespace test_support {

void ControlServer(const std::string& command, const std::string& folder) {
  const std::string line = std::string(UADMIN_DATABASE_SCRIPT) + " " + command + " " + folder;
  if (std::system(line.c_str()) != 0) throw std::runtime_error(line + " failed");
}

}  // namespace test_support
