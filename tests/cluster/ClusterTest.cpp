#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/sql/Query.h"
#include "server/engines/Engines.h"
#include "server/engines/odbc/ConnectionString.h"
#include "tests/support/data/SampleDatabase.h"

namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;
using test_support::RawDatabase;

// A sample on the cluster that scripts/database-server keeps; nodes are counted from 1.
class Cluster : public ::testing::Test {
 protected:
  static std::string Folder() { return std::getenv("UADMIN_DATABASE_SERVER"); }
  static std::string Node(int node) { return Folder() + "/node-" + std::to_string(node); }

  static void Script(const std::string& command, int node) {
    const std::string line = std::string(UADMIN_DATABASE_SCRIPT) + " " + command + " " + Node(node);
    ASSERT_EQ(std::system(line.c_str()), 0) << line;
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

TEST_F(Cluster, WorksOnWithoutTheNodeThatDiedDuringADialog) {
  const auto server = Open({2, 3, 1});
  const auto connection = server->DatabaseConnection();
  const auto set = connection->OpenResultSet(data::SqlSelectUser(9));
  set->Edit();
  set->SetColumn(L"FULLNAME", std::wstring(L"Après"));
  Script("kill", 2);
  const auto start = steady_clock::now();
  set->Update();
  EXPECT_EQ(connection->Execute(data::SqlDeleteUserPermissions(9)), 2);
  EXPECT_GT(server->NewIdentifier(L"QRUSRN"), 40);
  EXPECT_LT(steady_clock::now() - start, seconds(20));
  Script("resume", 2);
  for (const int node : {1, 2, 3}) {
    RawDatabase raw = Raw(node);
    raw.Execute("set session wsrep_sync_wait = 3");
    EXPECT_EQ(raw.Text("select fullname from qruser where userid = 9"), "Après") << node;
    EXPECT_EQ(raw.Number("select count(*) from qruprm where userid = 9"), 0) << node;
  }
}

TEST_F(Cluster, DrawsEachIdentifierOnceOnWhateverNode) {
  constexpr std::size_t kDraws = 100;
  std::vector<std::unique_ptr<server::ReferenceServer>> servers;
  for (const int node : {1, 2, 3}) servers.push_back(Open({node}));
  std::vector<std::vector<std::int32_t>> drawn(servers.size());
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < servers.size(); ++i) {
    threads.emplace_back([&server = *servers[i], &mine = drawn[i]] {
      while (mine.size() < kDraws) mine.push_back(server.NewIdentifier(L"QRUSRN"));
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::set<std::int32_t> all;
  for (const auto& mine : drawn) all.insert(mine.begin(), mine.end());
  EXPECT_EQ(all.size(), servers.size() * kDraws);
}

TEST_F(Cluster, ReadsOnOneNodeWhatWasJustWrittenOnAnother) {
  const auto writer = Open({1});
  const auto reader = Open({3});
  const auto writing = writer->DatabaseConnection();
  const auto reading = reader->DatabaseConnection();
  for (int round = 0; round < 30; ++round) {
    const std::wstring name = L"Tour " + std::to_wstring(round);
    const auto set = writing->OpenResultSet(data::SqlSelectUser(9));
    set->Edit();
    set->SetColumn(L"FULLNAME", name);
    set->Update();
    ASSERT_EQ(reading->OpenResultSet(data::SqlSelectUser(9))->Column(2).Text(), name);
  }
}

TEST_F(Cluster, TellsAWriterWhoLosesToAnotherNodeSo) {
  const auto slow = server::OpenEngine(On(1), seconds(5));
  const auto fast = server::OpenEngine(On(2), seconds(5));
  try {
    server::WriteTransaction transaction(*slow);
    server::Run(*slow, "UPDATE QRUSER SET FULLNAME = 'slow' WHERE USERID = 9");
    server::Run(*fast, "UPDATE QRUSER SET FULLNAME = 'fast' WHERE USERID = 9");
    transaction.Commit();
    ADD_FAILURE() << "both have written";
  } catch (const data::RunTimeError& error) {
    EXPECT_EQ(error.Number(), server::kDatabaseError);
    EXPECT_TRUE(slow->IsConflict(error));
  }
  RawDatabase raw = Raw(3);
  raw.Execute("set session wsrep_sync_wait = 3");
  EXPECT_EQ(raw.Text("select fullname from qruser where userid = 9"), "fast");
}

TEST_F(Cluster, WithoutAMajorityRefusesInTheDatabasesWordsAndWritesNothing) {
  const auto server = Open({1});
  const auto connection = server->DatabaseConnection();
  Signal(2, SIGSTOP);
  Signal(3, SIGSTOP);
  WaitUntilReady(Raw(1), "OFF");
  try {
    connection->Execute(data::SqlDeleteUserPermissions(9));
    ADD_FAILURE() << "it was written";
  } catch (const data::RunTimeError& error) {
    EXPECT_EQ(error.Number(), server::kDatabaseError);
    EXPECT_NE(error.Text().find(L"WSREP has not yet prepared node"), std::wstring::npos)
        << data::ToUtf8(error.Text());
  }
  Signal(2, SIGCONT);
  Signal(3, SIGCONT);
  for (const int node : {1, 2, 3}) WaitUntilReady(Raw(node), "ON");
  EXPECT_EQ(Raw(2).Number("select count(*) from qruprm where userid = 9"), 2);
  EXPECT_EQ(connection->Execute(data::SqlDeleteUserPermissions(9)), 2);
}

}  // namespace
