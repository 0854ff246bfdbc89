#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "server/engines/odbc/ConnectionString.h"
#include "tests/support/data/SampleDatabase.h"
#include "tests/support/network/DatabaseServer.h"

namespace cluster_test {

using std::chrono::seconds;
using std::chrono::steady_clock;
using test_support::RawDatabase;

// A sample on the cluster that scripts/database-server keeps; nodes are counted from 1.
class Cluster : public ::testing::Test {
 protected:
  static std::string Folder() { return std::getenv("UADMIN_DATABASE_SERVER"); }
  static std::string Node(int node) { return Folder() + "/node-" + std::to_string(node); }

  static void Script(const std::string& command, int node) {
    test_support::ControlServer(command, Node(node));
  }
  static void Signal(int node, int signal) {
    std::ifstream file(Node(node) + "/data/server.pid");
    pid_t process = 0;
    ASSERT_TRUE(file >> process);
    ASSERT_EQ(kill(process, signal), 0);
  }
  static std::string Host(int node) {
    std::ifstream file(Folder() + "/hosts");
    std::string line;
    std::getline(file, line);
    return server::HostsIn(line).at(static_cast<std::size_t>(node - 1));
  }

  // The sample as one node alone has it.
  server::DataSource On(int node) const {
    server::DataSource source = sample_.Source();
    source.odbc->connectionString = server::WithHost(source.odbc->connectionString, Host(node));
    return source;
  }
  RawDatabase Raw(int node) const { return RawDatabase(On(node)); }

  // A session that tries the nodes in this order.
  std::unique_ptr<server::ReferenceServer> Open(const std::vector<int>& nodes) {
    std::string hosts;
    for (const int node : nodes) hosts += Host(node) + ",";
    std::ofstream(sample_.Home() / "sources" / "test.ini", std::ios::app)
        << "hosts = " << hosts << "\n";
    return sample_.OpenServer();
  }

  // Waits until a node says that it works with the others, or that it does not.
  static void WaitUntilReady(RawDatabase raw, const std::string& ready) {
    const auto deadline = steady_clock::now() + seconds(90);
    while (raw.Text("select variable_value from information_schema.global_status where "
                    "variable_name = 'WSREP_READY'") != ready) {
      ASSERT_LT(steady_clock::now(), deadline);
      std::this_thread::yield();
    }
  }

  test_support::SampleDatabase sample_;
};

}  // namespace cluster_test
