#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <thread>

#include "app/StringIds.h"
#include "browser/trees/AccountRows.h"
#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "data/Text.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using controls::TreeNodes;
using controls::TreeView;

// What is over sooner is over at once, as far as the status line is concerned.
constexpr std::chrono::milliseconds kAtOnce{100};

class Refresh : public test_support::MainWindowFixture {
 protected:
  static void ExpectOnItsRoot(const TreeView& tree) {
    EXPECT_EQ(tree.SelectedNode(), tree.Nodes().Root());
    EXPECT_TRUE(tree.Nodes().Expanded(tree.Nodes().Root()));
  }

  // What a slow database does with a statement.
  static void TakeLong() { std::this_thread::sleep_for(kAtOnce); }
};

TEST_F(Refresh, BothTreesStartOnTheirRootsOpen) {
  Run([](frmUserGroupPerm& window) {
    for (const int tab : {kUsersTree, kGroupsTree}) ExpectOnItsRoot(window.Page(tab).TreeView1);
    EXPECT_EQ(window.Users.TreeView1.Nodes().Text(controls::NodeId{1}), L"Utilisateurs");
    EXPECT_EQ(window.Groups.TreeView1.Nodes().Text(controls::NodeId{1}), L"Groupes");
  });
}

TEST_F(Refresh, TheButtonShowsWhatTheDatabaseHoldsByThenAndReturnsToTheRoots) {
  Run([this](frmUserGroupPerm& window) {
    TreeView& users = window.Users.TreeView1;
    user.Select(users, NodeAt(users, {L"Martin (Jean Martin)", L"Membre du Groupe"}));
    Raw().Execute("INSERT INTO QRUSER (USERID, NAME, FULLNAME) VALUES (500, 'Nouvelle', 'Anne')");
    Raw().Execute("UPDATE QRGROUP SET NAME = 'Labo' WHERE GROUPID = 12");
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 9 AND GROUPID = 7");
    user.Click(window.cmdBtn[kRefreshButton]);
    for (const int tab : {kUsersTree, kGroupsTree}) ExpectOnItsRoot(window.Page(tab).TreeView1);
    NodeAt(users, {L"Nouvelle (Anne)"});
    EXPECT_EQ(ChildTexts(users, NodeAt(users, {L"Martin (Jean Martin)", L"Membre du Groupe"})),
              (std::vector<std::wstring>{L"Labo (Mesures et essais)",
                                         L"Tout le monde (Tous les utilisateurs)"}));
    EXPECT_EQ(window.Users.accountCount, 40);
  });
}

TEST_F(Refresh, TheNumberOfPermissionsIsThatOfTheDatabaseByThen) {
  Run([this](frmUserGroupPerm& window) {
    Raw().Execute("INSERT INTO QRPERM (PERMID, NAME) VALUES (500, 'Nouvelle')");
    user.Click(window.cmdBtn[kRefreshButton]);
    EXPECT_EQ(window.lblStatus.Caption(), L"39 utilisateurs, 12 groupes, 31 permissions");
  });
}

TEST_F(Refresh, F5RefreshesToo) {
  Run([this](frmUserGroupPerm& window) {
    Raw().Execute("INSERT INTO QRUSER (USERID, NAME) VALUES (500, 'Nouvelle')");
    user.PressKey(window, controls::kKeyF5);
    NodeAt(window.Users.TreeView1, {L"Nouvelle"});
  });
}

TEST_F(Refresh, RefreshingTwiceGivesTheSameTreesAndCounts) {
  Run([this](frmUserGroupPerm& window) {
    const auto dump = [&window] {
      std::vector<std::wstring> all;
      for (const int tab : {kUsersTree, kGroupsTree}) {
        const TreeNodes& nodes = window.Page(tab).TreeView1.Nodes();
        for (controls::NodeId node = nodes.NextIndex(controls::kNoNode); node != controls::kNoNode;
             node = nodes.NextIndex(node)) {
          all.push_back(nodes.Key(node) + L"=" + nodes.FullPath(node));
        }
      }
      std::sort(all.begin(), all.end());
      return all;
    };
    const auto before = dump();
    user.Click(window.cmdBtn[kRefreshButton]);
    EXPECT_EQ(dump(), before);
    EXPECT_EQ(window.Users.accountCount, 39);
    EXPECT_EQ(window.Groups.accountCount, 12);
  });
}

TEST_F(Refresh, AFailureIsReportedSaidInTheStatusLineAndTheProgramGoesOn) {
  Run([this](frmUserGroupPerm& window) {
    log.FailAt = [](const std::wstring& call) {
      return call == data::SqlSelectGroupUsers(6) ? 1234L : 0L;
    };
    user.ExpectMsgBox(
        {.answer = controls::kResultOk,
         .prompt = L"GroupNode Error [1234]\r\ninjected: " + data::SqlSelectGroupUsers(6)});
    user.Click(window.cmdBtn[kRefreshButton]);
    EXPECT_EQ(window.lblStatus.Caption(), Text(app::kAccountsIncomplete));
    EXPECT_TRUE(window.IsLoaded());
    EXPECT_EQ(desktop.Pointer(), controls::MousePointer::kDefault);
    log.FailAt = {};
    user.Click(window.cmdBtn[kRefreshButton]);
    EXPECT_EQ(window.Groups.accountCount, 12);
    EXPECT_EQ(window.lblStatus.Caption(), L"39 utilisateurs, 12 groupes, 30 permissions");
  });
}

TEST_F(Refresh, TheWindowSaysHowFarItIsWhileATreeIsReadSlowly) {
  Run([this](frmUserGroupPerm& window) {
    bool users = false;
    bool groups = false;
    log.FailAt = [&](const std::wstring& call) {
      if (call == data::SqlSelectAllUsers() || call == data::SqlSelectAllGroups()) TakeLong();
      const std::wstring status = window.lblStatus.Caption();
      if (call == data::SqlSelectUserGroups(9)) {
        users = status.starts_with(L"Lecture des utilisateurs : ") && status.ends_with(L" sur 39");
        EXPECT_EQ(desktop.Pointer(), controls::MousePointer::kWait);
      } else if (call == data::SqlSelectGroupUsers(12)) {
        groups = status.starts_with(L"Lecture des groupes : ") && status.ends_with(L" sur 12");
      }
      return 0L;
    };
    user.Click(window.cmdBtn[kRefreshButton]);
    EXPECT_TRUE(users);
    EXPECT_TRUE(groups);
    EXPECT_EQ(desktop.Pointer(), controls::MousePointer::kDefault);
  });
}

TEST_F(Refresh, OfATreeThatIsReadAtOnceTheStatusLineSaysNothing) {
  Run([this](frmUserGroupPerm& window) {
    const std::wstring before = window.lblStatus.Caption();
    const auto start = std::chrono::steady_clock::now();
    bool changed = false;
    log.FailAt = [&](const std::wstring&) {
      // On a machine that is busy a tree may well take longer.
      const auto elapsed = std::chrono::steady_clock::now() - start;
      changed |= elapsed < kAtOnce && window.lblStatus.Caption() != before;
      return 0L;
    };
    user.Click(window.cmdBtn[kRefreshButton]);
    EXPECT_FALSE(changed);
    EXPECT_EQ(window.lblStatus.Caption(), before);
  });
}

TEST_F(Refresh, ALockedDatabaseIsReportedWithItsOwnMessageAndReadOnceItIsFree) {
  Database().SetLockWait(std::chrono::milliseconds(50));
  Run([this](frmUserGroupPerm& window) {
    auto writer = Raw();
    writer.Execute("BEGIN EXCLUSIVE");
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = L"UserNode Error [-2147467259]\r\ndatabase is locked"});
    EXPECT_EQ(window.RefreshTree(), app::Outcome::kFailed);
    writer.Execute("ROLLBACK");
    EXPECT_EQ(window.RefreshTree(), app::Outcome::kDone);
    EXPECT_EQ(window.Users.accountCount, 39);
  });
}

TEST(AccountCount, The32768thAccountOfAKindIsRunTimeError6) {
  std::int16_t count = std::numeric_limits<std::int16_t>::max() - 1;
  CountOneMore(count);
  EXPECT_EQ(count, 32767);
  try {
    CountOneMore(count);
    FAIL() << "counted beyond 16 bits";
  } catch (const data::RunTimeError& error) {
    EXPECT_EQ(error.Number(), data::kOverflow);
  }
}

}  // namespace
}  // namespace browser
