#include <windows.h>

#include "bench/Server.h"
#include "com/ComSessionServer.h"

namespace bench {

std::unique_ptr<data::SessionServer> CreateServer(const test_support::SampleDatabase& database) {
  SetEnvironmentVariableW(L"VARDEX_HOME", database.Home().c_str());
  return com::CreateSessionServer(L"Vardex.Vardex.1", {});
}

}  // namespace bench
