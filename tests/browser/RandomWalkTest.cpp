#include <gtest/gtest.h>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <set>
#include <string>

#include "tests/support/walk/SmallSample.h"
#include "tests/support/walk/Walker.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

// How much is walked where nothing else is asked for. Native controls take their time.
#ifdef _WIN32
constexpr int kSequences = 5;
constexpr int kSteps = 60;
#else
constexpr int kSequences = 40;
constexpr int kSteps = 120;
#endif

// One sequence, and only that: its seed is printed where a sequence fails.
constexpr const char* kSeedVariable = "UADMIN_WALK_SEED";
// How many sequences, and the seed of the first; scripts/long-walk sets both.
constexpr const char* kSequencesVariable = "UADMIN_WALK_SEQUENCES";
constexpr const char* kFirstVariable = "UADMIN_WALK_FIRST";

int Setting(const char* name, int otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : std::atoi(value);
}

// Names that are easily mistaken for something else.
constexpr const char* kMisleadingNames[] = {
    "UPDATE QRUSER SET NAME = 'Droits Utilisateur', FULLNAME = NULL WHERE USERID = 15",
    "UPDATE QRGROUP SET NAME = 'Membre du Groupe', DESCR = NULL WHERE GROUPID = 12",
    "UPDATE QRPERM SET NAME = 'Ensemble des Droits' WHERE PERMID = 21",
};

class RandomWalk : public test_support::MainWindowFixture {
 protected:
  void TearDown() override { window.Unload(); }

  void Start(int seed) {
    UseSample();
    auto raw = Raw();
    test_support::CutDownSample(raw);
    for (const char* statement : kMisleadingNames) raw.Execute(statement);
    user.System().answers.LocalDataFolder = [this] {
      return (Database().Home() / "local").wstring();
    };
    user.SetCommandLine(Database().CommandLine(seed % 3 == 0 ? L"Moreau" : L"Admin"));
    window.Show();
    ASSERT_TRUE(window.isStarted);
  }

  void Walk(int seed) {
    Start(seed);
    auto raw = Raw();
    test_support::Walker walker(window, user, log, raw, static_cast<std::uint32_t>(seed));
    try {
      for (int step = 0; step < kSteps && !HasFailure(); ++step, ++walked) walker.Step();
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    if (HasFailure()) {
      std::string steps;
      for (const std::string& line : walker.Steps()) steps += line + "\n";
      ADD_FAILURE() << kSeedVariable << "=" << seed << ", the steps so far:\n" << steps;
    }
    written.insert(walker.Written().begin(), walker.Written().end());
    window.Unload();
  }

  frmUserGroupPerm window{global};
  std::set<std::string> written;  // the commands that have changed the database in some walk
  int walked = 0;                 // steps
};

TEST_F(RandomWalk, LeavesTreesButtonsAndDatabaseAsTheCommandsSay) {
  const int only = Setting(kSeedVariable, 0);
  const int first = only != 0 ? only : Setting(kFirstVariable, 1);
  const int count = only != 0 ? 1 : Setting(kSequencesVariable, kSequences);
  for (int i = 0; i < count && !HasFailure(); ++i) Walk(first + i);
  std::cout << walked << " steps walked" << std::endl;
  // A walk tests only what it comes to do. All fourteen commands take some time to come up.
  if (only == 0 && count >= 40) {
    EXPECT_EQ(written.size(), 14u) << ::testing::PrintToString(written);
  } else if (only == 0) {
    EXPECT_FALSE(written.empty());
  }
}

}  // namespace
}  // namespace browser
