#include <cstdlib>

#include "bench/Server.h"
#include "com/ComSessionServer.h"

namespace bench {

std::unique_ptr<data::SessionServer> CreateServer(const test_support::SampleDatabase& database) {
  // Both the environment and the run-time library's copy of it, which the server may read.
  _wputenv_s(L"VARDEX_HOME", database.Home().c_str());
  return com::CreateSessionServer(L"Vardex.Vardex.1", {});
}

}  // namespace bench
