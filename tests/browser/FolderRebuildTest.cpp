#include <gtest/gtest.h>

#include <algorithm>

#include "browser/trees/TreeImages.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using controls::TreeNodes;
using controls::TreeView;
using Strings = std::vector<std::wstring>;

std::wstring Wide(const char* utf8) {
  return data::FromUtf8(utf8);
}

// Martin is user 9; Qualité, group 6, is none of his.
class Folders : public test_support::MainWindowFixture {
 protected:
  static TreeView& Users(frmUserGroupPerm& window) { return window.TreeView1[0]; }
  static TreeView& Groups(frmUserGroupPerm& window) { return window.TreeView1[1]; }
  static int At(const TreeView& tree, const wchar_t* key) { return tree.Nodes().Find(key); }
};

TEST_F(Folders, ARebuiltFolderIsReadWithTheStatementOfItsKindAlone) {
  Run([this](frmUserGroupPerm& window) {
    const int martin = At(Users(window), L"\\TUS \\U9");
    const int quality = At(Groups(window), L"\\TGR \\G6");
    log.statements.clear();
    EXPECT_EQ(window.Folders().EditMemberOfNode(martin), data::kDone);
    EXPECT_EQ(window.Folders().EditUserPermissionsNode(martin), data::kDone);
    EXPECT_EQ(window.Folders().EditAllPermissionsNode(martin), data::kDone);
    EXPECT_EQ(window.Folders().EditMembersNode(quality), data::kDone);
    EXPECT_EQ(window.Folders().EditGroupPermissionsNode(quality), data::kDone);
    EXPECT_EQ(log.statements,
              (Strings{data::SqlSelectUserGroups(9), data::SqlSelectUserPermissionNames(9),
                       data::SqlSelectInheritedPermissions(9), data::SqlSelectGroupUsers(6),
                       data::SqlSelectGroupPermissionNames(6)}));
  });
}

TEST_F(Folders, ARebuiltFolderShowsWhatTheDatabaseHoldsInOrder) {
  Run([this](frmUserGroupPerm& window) {
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 9 AND GROUPID = 7");
    Raw().Execute("UPDATE QRGROUP SET DESCR = NULL WHERE GROUPID = 12");
    EXPECT_EQ(window.Folders().EditMemberOfNode(At(Users(window), L"\\TUS \\U9")), data::kDone);
    EXPECT_EQ(ChildTexts(Users(window), At(Users(window), L"\\TMO \\U9 \\G")),
              (Strings{L"Laboratoire", Wide("Qualité (Contrôle final et réclamations)"),
                       L"Tout le monde (Tous les utilisateurs)"}));
  });
}

TEST_F(Folders, AFolderIsTheSameAfterItsRebuildAsAfterARefresh) {
  Run([this](frmUserGroupPerm& window) {
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    Raw().Execute("DELETE FROM QRUPRM WHERE USERID = 9 AND PERMID = 14");
    const auto look = [&] {
      Strings shown;
      const TreeNodes& nodes = Users(window).Nodes();
      const int folder = nodes.Find(L"\\TAP \\U9 \\P");
      for (int leaf = nodes.FirstChild(folder); leaf != controls::kNoNode;
           leaf = nodes.Next(leaf)) {
        shown.push_back(nodes.Key(leaf) + nodes.Text(leaf) + std::to_wstring(nodes.Image(leaf)));
      }
      return shown;
    };
    const Strings before = look();
    const int martin = At(Users(window), L"\\TUS \\U9");
    window.Folders().EditUserPermissionsNode(martin);
    window.Folders().EditAllPermissionsNode(martin);
    const Strings rebuilt = look();
    EXPECT_NE(rebuilt, before);
    user.Click(window.cmdBtn[0]);
    EXPECT_EQ(rebuilt, look());
  });
}

TEST_F(Folders, ARebuiltFolderStaysOpenOrClosed) {
  Run([this](frmUserGroupPerm& window) {
    TreeView& users = Users(window);
    const int martin = At(users, L"\\TUS \\U9");
    const int open = At(users, L"\\TMO \\U9 \\G");
    const int closed = At(users, L"\\TAP \\U9 \\P");
    user.Expand(users, open);
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    window.Folders().EditMemberOfNode(martin);
    window.Folders().EditAllPermissionsNode(martin);
    EXPECT_TRUE(users.Nodes().Expanded(open));
    EXPECT_EQ(users.Nodes().Image(open), kFolderOpen);
    EXPECT_FALSE(users.Nodes().Expanded(closed));
    EXPECT_TRUE(users.Nodes().Expanded(martin));
  });
}

TEST_F(Folders, AnEmptyFolderIsClosedAfterItsRebuild) {
  Raw().Execute("DELETE FROM QRUSGP WHERE GROUPID = 6");
  Run([this](frmUserGroupPerm& window) {
    TreeView& groups = Groups(window);
    const int folder = At(groups, L"\\TMS \\G6 \\U");
    groups.SetExpanded(folder, true);
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    window.Folders().EditMembersNode(At(groups, L"\\TGR \\G6"));
    EXPECT_EQ(ChildTexts(groups, folder), Strings{L"Martin (Jean Martin)"});
    EXPECT_FALSE(groups.Nodes().Expanded(folder));
  });
}

TEST_F(Folders, TheSelectionInARebuiltFolderStaysOnWhatIsStillThere) {
  Run([this](frmUserGroupPerm& window) {
    TreeView& users = Users(window);
    user.Select(users, At(users, L"\\TGU \\U9 \\G12"));
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    window.Folders().EditMemberOfNode(At(users, L"\\TUS \\U9"));
    EXPECT_EQ(users.Nodes().Key(users.SelectedNode()), L"\\TGU \\U9 \\G12");
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 9");
    window.Folders().EditMemberOfNode(At(users, L"\\TUS \\U9"));
    EXPECT_EQ(users.Nodes().Key(users.SelectedNode()), L"\\TMO \\U9 \\G");
  });
}

TEST_F(Folders, AFolderThatCannotBeReadKeepsWhatItShowedAndTheBuilderIsNamed) {
  Run([this](frmUserGroupPerm& window) {
    TreeView& users = Users(window);
    const int folder = At(users, L"\\TMO \\U9 \\G");
    const Strings before = ChildTexts(users, folder);
    log.FailAt = [](const std::wstring&) { return 3021L; };
    user.ExpectMsgBox(
        {.answer = controls::kResultOk,
         .prompt = L"UserNode Error [3021]\r\ninjected: " + data::SqlSelectUserGroups(9)});
    EXPECT_EQ(window.Folders().EditMemberOfNode(At(users, L"\\TUS \\U9")), data::kFailed);
    EXPECT_EQ(ChildTexts(users, folder), before);
    log.FailAt = nullptr;
  });
}

TEST_F(Folders, AnAccountWithoutFoldersIsLeftAlone) {
  Run([this](frmUserGroupPerm& window) {
    const int martin = At(Users(window), L"\\TUS \\U9");
    window.Folders().DelAllChild(0, martin);
    EXPECT_FALSE(Users(window).Nodes().HasChildren(martin));
    log.statements.clear();
    EXPECT_EQ(window.Folders().EditMemberOfNode(martin), data::kDone);
    EXPECT_TRUE(log.statements.empty());
  });
}

TEST_F(Folders, AllMembersFoldersAreReadInOneReadInTheOrderOfTheTree) {
  Run([this](frmUserGroupPerm& window) {
    log.statements.clear();
    EXPECT_EQ(window.Folders().EditGroupNode(), data::kDone);
    const TreeNodes& nodes = Groups(window).Nodes();
    Strings expected{L"BeginRead"};
    for (int group = nodes.FirstChild(1); group != controls::kNoNode; group = nodes.Next(group)) {
      expected.push_back(data::SqlSelectGroupUsers(nodes.Id(group)));
    }
    expected.push_back(L"EndRead");
    EXPECT_EQ(log.statements, expected);
    EXPECT_EQ(expected.size(), 14u);
  });
}

TEST_F(Folders, EveryUsersGroupsAndPermissionsAreReadInOneRead) {
  Run([this](frmUserGroupPerm& window) {
    log.statements.clear();
    EXPECT_EQ(window.Folders().EditUserNode(), data::kDone);
    const TreeNodes& nodes = Users(window).Nodes();
    Strings expected{L"BeginRead"};
    for (int account = nodes.FirstChild(1); account != controls::kNoNode;
         account = nodes.Next(account)) {
      expected.push_back(data::SqlSelectUserGroups(nodes.Id(account)));
      expected.push_back(data::SqlSelectInheritedPermissions(nodes.Id(account)));
    }
    expected.push_back(L"EndRead");
    EXPECT_EQ(log.statements, expected);

    log.statements.clear();
    EXPECT_EQ(window.Folders().EditAllPermissionsUserNode(), data::kDone);
    EXPECT_EQ(log.statements.size(), 2u + 39u);
    EXPECT_EQ(log.statements[1].substr(0, 15), L"SELECT DISTINCT");
  });
}

TEST_F(Folders, RebuildingAllAccountsAsksForEachDisplayFormOnce) {
  Run([this](frmUserGroupPerm& window) {
    log.serverCalls.clear();
    window.Folders().EditUserNode();
    Strings calls = log.serverCalls;
    std::sort(calls.begin(), calls.end());
    EXPECT_EQ(std::adjacent_find(calls.begin(), calls.end()), calls.end());
    EXPECT_GT(calls.size(), 20u);
  });
}

TEST_F(Folders, TheFirstAccountThatCannotBeReadEndsTheRebuildOfAll) {
  Run([this](frmUserGroupPerm& window) {
    const std::wstring victim = data::SqlSelectGroupUsers(6);
    log.FailAt = [&](const std::wstring& call) { return call == victim ? 3021L : 0L; };
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = L"GroupNode Error [3021]\r\ninjected: " + victim});
    EXPECT_EQ(window.Folders().EditGroupNode(), data::kFailed);
    EXPECT_EQ(log.statements.back(), L"EndRead");
  });
}

TEST_F(Folders, AReadThatCannotBeginIsReportedUnderTheRebuildsName) {
  Run([this](frmUserGroupPerm& window) {
    log.FailAt = [](const std::wstring& call) { return call == L"BeginRead" ? 5L : 0L; };
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = L"EditUserNode Error [5]\r\ninjected: BeginRead"});
    EXPECT_EQ(window.Folders().EditUserNode(), data::kFailed);
  });
}

}  // namespace
}  // namespace browser
