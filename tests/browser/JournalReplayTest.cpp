#include <string>
#include <utility>
#include <vector>

#include "tests/browser/JournalTest.h"
#include "tests/support/walk/SmallSample.h"
#include "tests/support/walk/Tables.h"
#include "tests/support/walk/Walker.h"

namespace browser {
namespace {

using test_support::JsonValue;
using test_support::RawDatabase;
using test_support::Tables;

// Native controls take their time.
#ifdef _WIN32
constexpr int kWalks = 2;
#else
constexpr int kWalks = 6;
#endif
constexpr int kSteps = 150;

// What a journal can tell of a database: all but the passwords.
Tables WithoutPasswords(Tables tables) {
  for (auto& [id, record] : tables.users) record.password.clear();
  return tables;
}

class JournalReplay : public JournalTest {
 protected:
  void TearDown() override { window.Unload(); }

  // What somebody else did, and how many lines the journal had by then.
  using Outside = std::vector<std::pair<std::size_t, std::string>>;

  void Walk(std::uint32_t seed) {
    UseSample();
    auto raw = Raw();
    test_support::CutDownSample(raw);
    const std::filesystem::path copy = Database().Home() / "copy.db";
    std::filesystem::copy_file(Database().File(), copy);
    Outside outside;
    user.SetCommandLine(Database().CommandLine());
    window.Show();
    ASSERT_TRUE(window.isStarted);
    test_support::Walker walker(window, user, log, raw, seed);
    walker.WatchOutside(
        [&](const std::string& statement) { outside.emplace_back(CountLines(), statement); });
    for (int step = 0; step < kSteps && !HasFailure(); ++step) walker.Step();
    window.Unload();
    RawDatabase replayed(copy);
    const std::vector<JsonValue> lines = Lines();
    Replay(lines, outside, replayed);
    written += lines.size();
    Compare(test_support::ReadTables(replayed), test_support::ReadTables(raw));
  }

  std::size_t CountLines() { return std::filesystem::exists(Local()) ? Lines().size() : 0; }

  static void Replay(const std::vector<JsonValue>& lines, const Outside& outside,
                     RawDatabase& database) {
    auto other = outside.begin();
    for (std::size_t line = 0; line <= lines.size(); ++line) {
      for (; other != outside.end() && other->first == line; ++other) {
        database.Execute(other->second);
      }
      if (line < lines.size()) test_support::Replay(lines[line], database);
    }
  }

  static void Compare(const Tables& replayed, const Tables& real) {
    EXPECT_EQ(WithoutPasswords(replayed).users, WithoutPasswords(real).users);
    EXPECT_EQ(replayed.groups, real.groups);
    EXPECT_EQ(replayed.memberships, real.memberships);
    EXPECT_EQ(replayed.userPermissions, real.userPermissions);
    EXPECT_EQ(replayed.groupPermissions, real.groupPermissions);
  }

  frmUserGroupPerm window{global};
  std::size_t written = 0;  // lines
};

// On a copy of the database as it was at first.
TEST_F(JournalReplay, TheLinesOfAWalkGiveItsAccountsAndLinks) {
  for (int walk = 1; walk <= kWalks && !HasFailure(); ++walk) {
    Walk(static_cast<std::uint32_t>(walk));
    if (HasFailure()) ADD_FAILURE() << "in walk " << walk;
  }
  EXPECT_GT(written, 10u * kWalks);
}

}  // namespace
}  // namespace browser
