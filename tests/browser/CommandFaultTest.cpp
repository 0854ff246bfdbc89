#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include "app/StringIds.h"
#include "browser/trees/TreeImages.h"
#include "data/Text.h"
#include "tests/browser/FaultRun.h"
#include "tests/support/walk/SmallSample.h"
#include "tests/support/walk/Tables.h"
#include "tests/support/walk/WantedTrees.h"
#include "tests/support/window/FaultStride.h"

namespace browser {
namespace {

using test_support::Tables;
using test_support::TreeLines;

constexpr long kInjected = 1234;

// Set to anything, it has every call inside a result set fail in turn. That takes an hour.
constexpr const char* kEveryVariable = "UADMIN_EVERY_FAULT";

constexpr const char* kTables[] = {"QRUSER", "QRGROUP", "QRUSGP", "QRUPRM", "QRGPRM", "QRCOUNTER"};

// A call that a command makes, what it belongs to, and the database at the moment before it.
struct Position {
  std::wstring call;
  bool inside = false;  // of an open result set, reading or filling a row
  std::shared_ptr<const Tables> stored;
  const FaultPhase* phase = nullptr;
};

std::wstring WithoutDigits(std::wstring text) {
  std::erase_if(text, [](wchar_t character) { return character >= L'0' && character <= L'9'; });
  return text;
}

// Which of a command's calls are made to fail, one after the other.
using Choice = std::function<std::vector<std::size_t>(const std::vector<Position>& positions)>;

std::vector<std::size_t> EveryRecordedCall(const std::vector<Position>& positions) {
  std::vector<std::size_t> chosen;
  for (std::size_t at = 0; at < positions.size(); ++at) {
    if (!positions[at].inside) chosen.push_back(at);
  }
  return chosen;
}

// Of the calls of a phase that differ in numbers alone, the first and the last: those between them
// find nothing else. There are some thousands in all, which a setting has tried too.
std::vector<std::size_t> CallsInside(const std::vector<Position>& positions) {
  const bool every = std::getenv(kEveryVariable) != nullptr;
  std::map<std::pair<const FaultPhase*, std::wstring>, std::pair<std::size_t, std::size_t>> alike;
  std::set<std::size_t> chosen;
  for (std::size_t at = 0; at < positions.size(); ++at) {
    const Position& position = positions[at];
    if (!position.inside) continue;
    if (every) chosen.insert(at);
    const auto [entry, isNew] =
        alike.try_emplace({position.phase, WithoutDigits(position.call)}, at, at);
    if (!isNew) entry->second.second = at;
  }
  for (const auto& [call, places] : alike) chosen.insert({places.first, places.second});
  return {chosen.begin(), chosen.end()};
}

// Every command again and again, and each time another one of its calls fails.
class CommandFaults : public FaultRun {
 protected:
  void KeepDatabase() {
    auto raw = Raw();
    test_support::CutDownSample(raw);
    for (const std::string table : kTables) {
      raw.Execute("CREATE TABLE KEPT_" + table + " AS SELECT * FROM " + table);
    }
  }
  void RestoreDatabase(test_support::RawDatabase& raw) {
    raw.Execute("BEGIN IMMEDIATE");
    for (const std::string table : kTables) {
      raw.Execute("DELETE FROM " + table);
      raw.Execute("INSERT INTO " + table + " SELECT * FROM KEPT_" + table);
    }
    raw.Execute("COMMIT");
  }

  // What is seen of each node of both trees, without what stands above it.
  static TreeLines Lines(frmUserGroupPerm& window) {
    TreeLines lines;
    for (const int tree : {kUsersTree, kGroupsTree}) {
      const controls::TreeNodes& nodes = window.Page(tree).TreeView1.Nodes();
      for (controls::NodeId node = nodes.NextIndex(controls::kNoNode); node != controls::kNoNode;
           node = nodes.NextIndex(node)) {
        const int image = nodes.Image(node) == kFolderOpen ? +kFolderClosed : nodes.Image(node);
        lines[std::to_wstring(tree) + nodes.Key(node)] =
            nodes.Text(node) + L" | " + std::to_wstring(image) + L" | " + nodes.StoredName(node);
      }
    }
    return lines;
  }

  static void AssignPhases(const FaultCase& test, std::vector<Position>& positions) {
    PhaseWalk walk(test);
    for (Position& position : positions) {
      position.phase = walk.Next(position.call, position.inside);
      if (position.phase != nullptr) continue;
      ADD_FAILURE() << test.name << " makes an unexpected call: " << data::ToUtf8(position.call);
      return;
    }
    EXPECT_TRUE(walk.AtEnd()) << test.name << " did not come to its end";
  }

  // The command as it goes when nothing fails.
  std::vector<Position> Observe(frmUserGroupPerm& window, const FaultCase& test,
                                test_support::RawDatabase& raw) {
    std::vector<Position> positions;
    Give(window, test, [&](const std::wstring& call, bool inside) {
      // Nothing is written from one call inside a result set to the next.
      const bool same = inside && !positions.empty() && positions.back().inside;
      auto stored = same ? positions.back().stored : std::make_shared<const Tables>(Stored(raw));
      positions.push_back({call, inside, std::move(stored)});
      return 0L;
    });
    EXPECT_TRUE(reports_.empty());
    EXPECT_EQ(window.exchange.AddNode, static_cast<bool>(test.Fill)) << test.name;
    EXPECT_NE(*positions.back().stored, *positions.front().stored) << test.name;
    AssignPhases(test, positions);
    return positions;
  }

  void Reset(frmUserGroupPerm& window, const FaultCase& test, test_support::RawDatabase& raw) {
    const bool changed = Stored(raw) != kept_;
    RestoreDatabase(raw);
    if (changed) {
      ASSERT_EQ(window.RefreshTree(), app::Outcome::kDone);
      kept_ = Stored(raw);
    }
    Select(window, test.tree, test.key);
  }

  // Every node is as it was before the command or as it is after it.
  static void ExpectBetween(const TreeLines& now, const TreeLines& before, const TreeLines& after) {
    for (const auto& [key, line] : now) {
      const auto old = before.find(key);
      const auto fresh = after.find(key);
      EXPECT_TRUE((old != before.end() && old->second == line) ||
                  (fresh != after.end() && fresh->second == line))
          << data::ToUtf8(key + L"=" + line);
    }
    for (const auto& [key, line] : before) {
      EXPECT_TRUE(now.contains(key) || !after.contains(key)) << data::ToUtf8(key + L"=" + line);
    }
  }

  void ExpectFailedAt(frmUserGroupPerm& window, const FaultCase& test, const Position& position,
                      const TreeLines& before, const TreeLines& after) {
    const std::wstring report =
        std::wstring(position.phase->procedure) + L" Error [1234]\r\ninjected: " + position.call;
    EXPECT_EQ(reports_, Strings{report});
    EXPECT_TRUE(user.CanUse(window.cmdBtn[kRefreshButton]));
    EXPECT_EQ(desktop.Pointer(), controls::MousePointer::kDefault);
    if (position.phase->kind == FaultPhase::kWrite) {
      EXPECT_FALSE(window.exchange.AddNode);
      EXPECT_EQ(Lines(window), before);
      EXPECT_NE(window.lblStatus.Caption(), Text(app::kIncomplete));
    } else {
      EXPECT_EQ(window.exchange.AddNode, static_cast<bool>(test.Fill));
      ExpectBetween(Lines(window), before, after);
      // A new account without a node is more than leaves that are missing.
      const bool names = !window.Users.cmdUser[kNewButton].Enabled();
      EXPECT_EQ(window.lblStatus.Caption(), Text(names ? 408 : 405));
      EXPECT_TRUE(!names || std::string_view(test.name).starts_with("new "));
    }
  }

  void ExpectRefreshPutsRight(frmUserGroupPerm& window, test_support::RawDatabase& raw) {
    EXPECT_EQ(window.RefreshTree(), app::Outcome::kDone);
    test_support::WantedTrees wanted(window.accounts);
    wanted.Refresh(test_support::ReadTables(raw));
    for (const int tree : {kUsersTree, kGroupsTree}) {
      int nodes = 0;
      for (const auto& [key, line] : wanted.Lines(tree)) {
        nodes += Has(window, tree, key.c_str()) ? 1 : 0;
      }
      EXPECT_EQ(nodes, static_cast<int>(wanted.Lines(tree).size()));
      EXPECT_EQ(window.Page(tree).TreeView1.Nodes().Count(), nodes);
    }
    EXPECT_EQ(window.Users.accountCount, wanted.Count(0));
    EXPECT_EQ(window.Groups.accountCount, wanted.Count(1));
    EXPECT_NE(window.lblStatus.Caption(), Text(app::kIncomplete));
  }

  void FailEverywhere(frmUserGroupPerm& window, const FaultCase& test,
                      test_support::RawDatabase& raw, const Choice& choose) {
    Reset(window, test, raw);
    const TreeLines before = Lines(window);
    const std::vector<Position> positions = Observe(window, test, raw);
    const TreeLines after = Lines(window);
    if (HasFailure()) return;
    const std::vector<std::size_t> chosen = choose(positions);
    for (std::size_t i = 0; i < chosen.size() && !HasFailure(); i += test_support::kFaultStride) {
      const std::size_t at = chosen[i];
      SCOPED_TRACE(std::string(test.name) + ", call " + std::to_string(at) + ": " +
                   data::ToUtf8(positions[at].call));
      Reset(window, test, raw);
      Give(window, test,
           [left = at](const std::wstring&, bool) mutable { return left-- == 0 ? kInjected : 0L; });
      ExpectFailedAt(window, test, positions[at], before, after);
      EXPECT_EQ(Stored(raw), *positions[at].stored);
      ExpectRefreshPutsRight(window, raw);
    }
    tried_ += chosen.size();
  }

  void FailAll(const Choice& choose) {
    KeepDatabase();
    user.SetCommandLine(Database().CommandLine());
    frmUserGroupPerm window(global);
    window.Show();
    ASSERT_TRUE(window.isStarted);
    auto raw = Raw();
    for (const FaultCase& test : FaultCases()) FailEverywhere(window, test, raw, choose);
    window.Unload();
    RecordProperty("positions", static_cast<int>(tried_));
  }

  Tables kept_;  // the database that the trees were last refreshed from
  std::size_t tried_ = 0;
};

TEST_F(CommandFaults, AtEachCallAreReportedAndLeaveWhatWasWrittenAndTreesThatARefreshPutsRight) {
  FailAll(EveryRecordedCall);
  EXPECT_GT(tried_, 300u);
}

TEST_F(CommandFaults, InsideEachResultSetAreReportedAndLeaveWhatWasWritten) {
  FailAll(CallsInside);
  EXPECT_GT(tried_, 300u);
}

}  // namespace
}  // namespace browser
