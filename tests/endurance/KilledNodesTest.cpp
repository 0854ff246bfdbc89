// Nodes of a cluster that are killed while users are saved: what was told as done is on every node
// that is left, nothing is there twice, and the work goes on.

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <random>
#include <thread>

#include "Work.h"
#include "data/Text.h"
#include "tests/cluster/Cluster.h"

namespace endurance {
namespace {

using cluster_test::RawDatabase;
using std::chrono::seconds;
using std::chrono::steady_clock;

constexpr seconds kLongest{10};
constexpr int kKills = 100;

class KilledNodes : public cluster_test::Cluster {
 protected:
  // A save goes by the nodes in turn, the first of them being the one named.
  Work WorkOn(int first) { return Work(Open({first, first % 3 + 1, (first + 1) % 3 + 1})); }

  static double SecondsSince(steady_clock::time_point moment) {
    return std::chrono::duration<double>(steady_clock::now() - moment).count();
  }

  static std::set<std::int32_t> Numbers(RawDatabase& raw, const std::string& sql) {
    std::set<std::int32_t> numbers;
    for (const auto& row : raw.Rows(sql)) numbers.insert(std::stoi(row[0]));
    return numbers;
  }

  // That a node has what was told as done, and nothing else.
  void ExpectOn(int node, const Done& done) {
    RawDatabase raw = Raw(node);
    raw.Execute("set session wsrep_sync_wait = 3");
    const std::string ours = "name like 'Endurance %'";
    EXPECT_EQ(Numbers(raw, "select userid from qruser where vflg <> 'D' and " + ours), done.users);
    EXPECT_EQ(Numbers(raw, "select userid from qruser where vflg = 'D' and " + ours), done.deleted);
    std::set<std::pair<std::int32_t, std::int32_t>> members;
    const auto rows = raw.Rows(
        "select userid, groupid from qrusgp where userid in (select userid from qruser where " +
        ours + ")");
    for (const auto& row : rows) members.emplace(std::stoi(row[0]), std::stoi(row[1]));
    EXPECT_EQ(members, done.members);
    EXPECT_EQ(members.size(), rows.size());
  }
  void ExpectOnOthers(int killed, const Done& done) {
    for (const int node : {1, 2, 3}) {
      if (node != killed) ExpectOn(node, done);
    }
  }
  void Report(const Work& work, const std::vector<double>& waits) {
    RecordProperty("errors", work.Errors());
    RecordProperty("uncertain", work.Uncertain());
    RecordProperty("users", static_cast<int>(work.Told().users.size()));
    const double longest = waits.empty() ? 0 : *std::max_element(waits.begin(), waits.end());
    RecordProperty("longest_ms", static_cast<int>(1000 * longest));
    EXPECT_LT(longest, static_cast<double>(kLongest.count()));
    EXPECT_EQ(work.Untold(), 0);
  }
};

TEST_F(KilledNodes, AtEachStepOfASaveLoseNothing) {
  std::vector<double> waits;
  Done all;
  for (int at = 0; at < Work::kSteps && !HasFailure(); ++at) {
    const int node = at % 3 + 1;
    SCOPED_TRACE("step " + std::to_string(at) + ", node " + std::to_string(node));
    Work work = WorkOn(node);
    steady_clock::time_point killed;
    work.SaveOne([&](int step) {
      if (step == at + 1) waits.push_back(SecondsSince(killed));
      if (step != at) return;
      Script("kill", node);
      killed = steady_clock::now();
    });
    if (at + 1 == Work::kSteps) waits.push_back(SecondsSince(killed));
    all.users.insert(work.Told().users.begin(), work.Told().users.end());
    all.members.insert(work.Told().members.begin(), work.Told().members.end());
    ExpectOnOthers(node, all);
    Script("resume", node);
    ExpectOn(node, all);
    Report(work, waits);
  }
}

// Saves users in a thread of its own.
class Saver {
 public:
  explicit Saver(Work work) : work_(std::move(work)), thread_([this] { Run(); }) {}
  ~Saver() { End(); }
  Saver(const Saver&) = delete;
  Saver& operator=(const Saver&) = delete;

  // Waits for the end of the save that goes on, and looks at the work between it and the next.
  void AfterThisSave(const std::function<void(const Work& work)>& look) {
    std::unique_lock lock(mutex_);
    const int before = saves_;
    changed_.wait(lock, [&] { return saves_ > before || ends_; });
    EXPECT_EQ(failure_, "");
    look(work_);
  }
  void End() {
    {
      const std::lock_guard lock(mutex_);
      ends_ = true;
    }
    if (thread_.joinable()) thread_.join();
  }
  int Saves() const { return saves_; }
  const Work& Get() const { return work_; }

 private:
  void Run() {
    std::unique_lock lock(mutex_);
    try {
      while (!ends_) {
        work_.SaveOne([](int) {});
        ++saves_;
        changed_.notify_all();
        changed_.wait_for(lock, std::chrono::milliseconds(1));  // lets the other one look
      }
    } catch (const std::exception& error) {
      failure_ = error.what();
      ends_ = true;
      changed_.notify_all();
    }
  }

  Work work_;
  std::mutex mutex_;  // held during a save
  std::condition_variable changed_;
  int saves_ = 0;
  bool ends_ = false;
  std::string failure_;
  std::thread thread_;
};

TEST_F(KilledNodes, AHundredTimesAtRandomMomentsLoseNothing) {
  Saver saver(WorkOn(1));
  std::mt19937 dice(20'261'122);
  std::vector<double> waits;
  for (int kill = 0; kill < kKills && !HasFailure(); ++kill) {
    const int node = static_cast<int>(dice() % 3) + 1;
    SCOPED_TRACE("kill " + std::to_string(kill) + ", node " + std::to_string(node));
    std::this_thread::sleep_for(std::chrono::milliseconds(dice() % 1000));
    Script("kill", node);
    const auto killed = steady_clock::now();
    saver.AfterThisSave([&](const Work& work) {
      waits.push_back(SecondsSince(killed));
      ExpectOnOthers(node, work.Told());
    });
    Script("resume", node);
  }
  saver.End();
  for (const int node : {1, 2, 3}) ExpectOn(node, saver.Get().Told());
  RecordProperty("kills", static_cast<int>(waits.size()));
  RecordProperty("saves", saver.Saves());
  Report(saver.Get(), waits);
}

}  // namespace
}  // namespace endurance
