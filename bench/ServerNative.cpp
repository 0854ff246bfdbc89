#include "bench/Server.h"

namespace bench {

std::unique_ptr<data::SessionServer> CreateServer(const test_support::SampleDatabase& database) {
  return database.MakeServer();
}

}  // namespace bench
