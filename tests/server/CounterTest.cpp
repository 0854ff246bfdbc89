#include <algorithm>
#include <fstream>
#include <set>
#include <thread>

#include "ServerTest.h"
#include "server/core/accounts/Counters.h"
#include "server/core/sql/Query.h"
#include "server/engines/Engines.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace server_test {
namespace {

constexpr int kWorkers = 8;
constexpr int kEach = 25;

using Counter = OnSample;

TEST_F(Counter, GoesOnWhereTheSampleEnds) {
  EXPECT_EQ(server_->NewIdentifier(L"QRUSRN"), 41);
  EXPECT_EQ(server_->NewIdentifier(L"QRUSRN"), 42);
  EXPECT_EQ(server_->NewIdentifier(L"QRGPRN"), 13);
}

TEST_F(Counter, OfAnotherNameIsAnError) {
  EXPECT_EQ(NumberOf([&] { server_->NewIdentifier(L"QRUSER"); }), server::kCounterUnknown);
  EXPECT_EQ(NumberOf([&] { server_->NewIdentifier(L"' OR 1=1 --"); }), server::kCounterUnknown);
  EXPECT_EQ(NumberOf([&] { server_->NewIdentifier(L""); }), server::kCounterUnknown);
}

TEST_F(Counter, EndsAtTheLastIdentifierOf32Bits) {
  sample_.Raw().Execute("update qrcounter set lastvalue = 2147483646 where name = 'QRUSRN'");
  EXPECT_EQ(server_->NewIdentifier(L"QRUSRN"), 2147483647);
  EXPECT_EQ(NumberOf([&] { server_->NewIdentifier(L"QRUSRN"); }), server::kCounterExhausted);
  EXPECT_EQ(NumberOf([&] { server_->NewIdentifier(L"QRUSRN"); }), server::kCounterExhausted);
  EXPECT_EQ(sample_.Raw().Number("select lastvalue from qrcounter where name = 'QRUSRN'"),
            2147483647);
}

TEST_F(Counter, IsOnlyEverRaised) {
  const auto engine = sample_.Engine();
  server::RaiseCounter(*engine, "QRUSRN", 100);
  server::RaiseCounter(*engine, "QRUSRN", 50);
  EXPECT_EQ(server_->NewIdentifier(L"QRUSRN"), 101);
}

TEST_F(Counter, GivesEachIdentifierOnceToManyAtATime) {
  sample_.SetLockWait(std::chrono::seconds(60));
  std::vector<std::unique_ptr<server::ReferenceServer>> servers;
  for (int i = 0; i < kWorkers; ++i) servers.push_back(sample_.OpenServer());
  std::vector<std::vector<std::int32_t>> drawn(kWorkers);
  std::vector<std::thread> threads;
  for (int i = 0; i < kWorkers; ++i) {
    threads.emplace_back([&, i] {
      for (int n = 0; n < kEach; ++n) drawn[i].push_back(servers[i]->NewIdentifier(L"QRUSRN"));
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::set<std::int32_t> all;
  for (const auto& identifiers : drawn) {
    EXPECT_TRUE(std::is_sorted(identifiers.begin(), identifiers.end()));
    all.insert(identifiers.begin(), identifiers.end());
  }
  EXPECT_EQ(all.size(), static_cast<std::size_t>(kWorkers * kEach));
  EXPECT_EQ(*all.begin(), 41);
  EXPECT_EQ(*all.rbegin(), 40 + kWorkers * kEach);
}

#ifndef _WIN32

// Draws identifiers in a process of its own and writes them down; its exit code tells how it went.
int DrawInProcess(test_support::SampleDatabase& sample, const std::filesystem::path& output) {
  try {
    const auto engine = server::OpenEngine(sample.Source(), std::chrono::seconds(60));
    std::ofstream file(output);
    for (int n = 0; n < kEach; ++n) {
      server::WriteTransaction transaction(*engine);
      file << server::DrawIdentifier(*engine, "QRUSRN") << "\n";
      transaction.Commit();
    }
    return file.flush() ? 0 : 1;
  } catch (const std::exception&) {
    return 1;
  }
}

TEST(CounterOfOneDatabase, GivesEachIdentifierOnceToManyProcesses) {
  test_support::SampleDatabase sample;
  std::vector<pid_t> workers;
  const auto output = [&](int i) { return sample.Home() / ("drawn" + std::to_string(i)); };
  for (int i = 0; i < kWorkers; ++i) {
    const pid_t worker = fork();
    if (worker == 0) _exit(DrawInProcess(sample, output(i)));
    ASSERT_GT(worker, 0);
    workers.push_back(worker);
  }
  for (const pid_t worker : workers) {
    int status = 0;
    ASSERT_EQ(waitpid(worker, &status, 0), worker);
    EXPECT_EQ(status, 0);
  }
  std::set<int> all;
  for (int i = 0; i < kWorkers; ++i) {
    std::ifstream file(output(i));
    for (int identifier = 0; file >> identifier;) all.insert(identifier);
  }
  EXPECT_EQ(all.size(), static_cast<std::size_t>(kWorkers * kEach));
}

#endif

}  // namespace
}  // namespace server_test
