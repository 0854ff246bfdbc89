#include "Cluster.h"

#include <set>

#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/sql/Query.h"
#include "server/engines/Engines.h"

namespace cluster_test {
namespace {

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
}  // namespace cluster_test
