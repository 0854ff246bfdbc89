#include <gtest/gtest.h>

#include <algorithm>

#include "app/StringIds.h"
#include "browser/trees/GroupsTree.h"
#include "browser/trees/TreeImages.h"
#include "browser/trees/UsersTree.h"
#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "data/Text.h"
#include "tests/support/keys/Keys.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using controls::TreeNodes;
using controls::TreeView;
using test_support::Keys;
using Strings = std::vector<std::wstring>;

std::wstring Wide(const char* utf8) {
  return data::FromUtf8(utf8);
}

// Martin is user 9; Qualité, group 6, is none of his.
class Folders : public test_support::MainWindowFixture {
 protected:
  static TreeView& Users(frmUserGroupPerm& window) { return window.Users.TreeView1; }
  static TreeView& Groups(frmUserGroupPerm& window) { return window.Groups.TreeView1; }
  static controls::NodeId At(const TreeView& tree, const std::wstring& key) {
    return tree.Nodes().Find(key);
  }
  // Runs the script with builders over the two trees of the started window.
  void RunWithTrees(const std::function<void(frmUserGroupPerm& window, UsersTree& users,
                                             GroupsTree& groups)>& script) {
    Run([&](frmUserGroupPerm& window) {
      const TreeCaptions captions = TreeCaptions::Load(global);
      const TreeContext context{global, captions, window.accounts, [](int, int) {}};
      std::int16_t count = 0;
      UsersTree users(context, window.Users.TreeView1, count);
      GroupsTree groups(context, window.Groups.TreeView1, count);
      script(window, users, groups);
    });
  }
  // What is the standard report of a node that does not live.
  void ExpectNoSuchNode(const wchar_t* procedure) {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = std::wstring(procedure) + L" Error [35601]\r\n" +
                                 TextOfError(data::kElementNotFound)});
  }
};

TEST_F(Folders, ARebuiltFolderIsReadWithTheStatementOfItsKindAlone) {
  RunWithTrees([this](frmUserGroupPerm& window, UsersTree& usersTree, GroupsTree& groupsTree) {
    const controls::NodeId martin = At(Users(window), Keys::User(9));
    const controls::NodeId quality = At(Groups(window), Keys::Group(6));
    log.statements.clear();
    EXPECT_EQ(usersTree.EditMemberOfNode(martin), app::Outcome::kDone);
    EXPECT_EQ(usersTree.EditUserPermissionsNode(martin), app::Outcome::kDone);
    EXPECT_EQ(usersTree.EditAllPermissionsNode(martin), app::Outcome::kDone);
    EXPECT_EQ(groupsTree.EditMembersNode(quality), app::Outcome::kDone);
    EXPECT_EQ(groupsTree.EditGroupPermissionsNode(quality), app::Outcome::kDone);
    EXPECT_EQ(log.statements,
              (Strings{data::SqlSelectUserGroups(9), data::SqlSelectUserPermissionNames(9),
                       data::SqlSelectInheritedPermissions(9), data::SqlSelectGroupUsers(6),
                       data::SqlSelectGroupPermissionNames(6)}));
  });
}

TEST_F(Folders, ARebuiltFolderShowsWhatTheDatabaseHoldsInOrder) {
  RunWithTrees([this](frmUserGroupPerm& window, UsersTree& usersTree, GroupsTree&) {
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 9 AND GROUPID = 7");
    Raw().Execute("UPDATE QRGROUP SET DESCR = NULL WHERE GROUPID = 12");
    EXPECT_EQ(usersTree.EditMemberOfNode(At(Users(window), Keys::User(9))), app::Outcome::kDone);
    EXPECT_EQ(ChildTexts(Users(window), At(Users(window), Keys::GroupsOfUser(9))),
              (Strings{L"Laboratoire", Wide("Qualité (Contrôle final et réclamations)"),
                       L"Tout le monde (Tous les utilisateurs)"}));
  });
}

TEST_F(Folders, AFolderIsTheSameAfterItsRebuildAsAfterARefresh) {
  RunWithTrees([this](frmUserGroupPerm& window, UsersTree& usersTree, GroupsTree&) {
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    Raw().Execute("DELETE FROM QRUPRM WHERE USERID = 9 AND PERMID = 14");
    const auto look = [&] {
      Strings shown;
      const TreeNodes& nodes = Users(window).Nodes();
      const controls::NodeId folder = nodes.Find(Keys::AllPermissions(9));
      for (const controls::NodeId leaf : nodes.ChildrenInOrder(folder)) {
        shown.push_back(nodes.Key(leaf) + nodes.Text(leaf) + std::to_wstring(nodes.Image(leaf)));
      }
      return shown;
    };
    const Strings before = look();
    const controls::NodeId martin = At(Users(window), Keys::User(9));
    EXPECT_EQ(usersTree.EditUserPermissionsNode(martin), app::Outcome::kDone);
    EXPECT_EQ(usersTree.EditAllPermissionsNode(martin), app::Outcome::kDone);
    const Strings rebuilt = look();
    EXPECT_NE(rebuilt, before);
    user.Click(window.cmdBtn[kRefreshButton]);
    EXPECT_EQ(rebuilt, look());
  });
}

TEST_F(Folders, ARebuiltFolderStaysOpenOrClosed) {
  RunWithTrees([this](frmUserGroupPerm& window, UsersTree& usersTree, GroupsTree&) {
    TreeView& users = Users(window);
    const controls::NodeId martin = At(users, Keys::User(9));
    const controls::NodeId open = At(users, Keys::GroupsOfUser(9));
    const controls::NodeId closed = At(users, Keys::AllPermissions(9));
    user.Expand(users, open);
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    EXPECT_EQ(usersTree.EditMemberOfNode(martin), app::Outcome::kDone);
    EXPECT_EQ(usersTree.EditAllPermissionsNode(martin), app::Outcome::kDone);
    EXPECT_TRUE(users.Nodes().Expanded(open));
    EXPECT_EQ(users.Nodes().Image(open), kFolderOpen);
    EXPECT_FALSE(users.Nodes().Expanded(closed));
    EXPECT_TRUE(users.Nodes().Expanded(martin));
  });
}

TEST_F(Folders, AnEmptyFolderIsClosedAfterItsRebuild) {
  Raw().Execute("DELETE FROM QRUSGP WHERE GROUPID = 6");
  RunWithTrees([this](frmUserGroupPerm& window, UsersTree&, GroupsTree& groupsTree) {
    TreeView& groups = Groups(window);
    const controls::NodeId folder = At(groups, Keys::MembersOfGroup(6));
    groups.SetExpanded(folder, true);
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    EXPECT_EQ(groupsTree.EditMembersNode(At(groups, Keys::Group(6))), app::Outcome::kDone);
    EXPECT_EQ(ChildTexts(groups, folder), Strings{L"Martin (Jean Martin)"});
    EXPECT_FALSE(groups.Nodes().Expanded(folder));
  });
}

TEST_F(Folders, TheSelectionInARebuiltFolderStaysOnWhatIsStillThere) {
  RunWithTrees([this](frmUserGroupPerm& window, UsersTree& usersTree, GroupsTree&) {
    TreeView& users = Users(window);
    user.Select(users, At(users, Keys::GroupOfUser(9, 12)));
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 6)");
    EXPECT_EQ(usersTree.EditMemberOfNode(At(users, Keys::User(9))), app::Outcome::kDone);
    EXPECT_EQ(users.Nodes().Key(users.SelectedNode()), Keys::GroupOfUser(9, 12));
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 9");
    EXPECT_EQ(usersTree.EditMemberOfNode(At(users, Keys::User(9))), app::Outcome::kDone);
    EXPECT_EQ(users.Nodes().Key(users.SelectedNode()), Keys::GroupsOfUser(9));
  });
}

TEST_F(Folders, AFolderThatCannotBeReadKeepsWhatItShowedAndTheBuilderIsNamed) {
  RunWithTrees([this](frmUserGroupPerm& window, UsersTree& usersTree, GroupsTree&) {
    TreeView& users = Users(window);
    const controls::NodeId folder = At(users, Keys::GroupsOfUser(9));
    const Strings before = ChildTexts(users, folder);
    log.FailAt = [](const std::wstring&) { return 3021L; };
    user.ExpectMsgBox(
        {.answer = controls::kResultOk,
         .prompt = L"UserNode Error [3021]\r\ninjected: " + data::SqlSelectUserGroups(9)});
    EXPECT_EQ(usersTree.EditMemberOfNode(At(users, Keys::User(9))), app::Outcome::kFailed);
    EXPECT_EQ(ChildTexts(users, folder), before);
    log.FailAt = nullptr;
  });
}

TEST_F(Folders, AnAccountWithoutFoldersIsLeftAlone) {
  RunWithTrees([this](frmUserGroupPerm& window, UsersTree& usersTree, GroupsTree&) {
    const controls::NodeId martin = At(Users(window), Keys::User(9));
    Users(window).RemoveChildren(martin);
    EXPECT_FALSE(Users(window).Nodes().HasChildren(martin));
    log.statements.clear();
    EXPECT_EQ(usersTree.EditMemberOfNode(martin), app::Outcome::kDone);
    EXPECT_TRUE(log.statements.empty());
  });
}

TEST_F(Folders, ANodeThatDoesNotLiveIsReportedUnderTheOperationsName) {
  RunWithTrees([this](frmUserGroupPerm&, UsersTree& usersTree, GroupsTree& groupsTree) {
    constexpr controls::NodeId kDead{999999};
    ExpectNoSuchNode(L"EditMemberOfNode");
    EXPECT_EQ(usersTree.EditMemberOfNode(kDead), app::Outcome::kFailed);
    ExpectNoSuchNode(L"EditUserPermissionsNode");
    EXPECT_EQ(usersTree.EditUserPermissionsNode(kDead), app::Outcome::kFailed);
    ExpectNoSuchNode(L"EditAllPermissionsNode");
    EXPECT_EQ(usersTree.EditAllPermissionsNode(kDead), app::Outcome::kFailed);
    ExpectNoSuchNode(L"EditMembersNode");
    EXPECT_EQ(groupsTree.EditMembersNode(kDead), app::Outcome::kFailed);
    ExpectNoSuchNode(L"EditGroupPermissionsNode");
    EXPECT_EQ(groupsTree.EditGroupPermissionsNode(kDead), app::Outcome::kFailed);
  });
}

TEST_F(Folders, AllMembersFoldersAreReadInOneReadInTheOrderOfTheTree) {
  RunWithTrees([this](frmUserGroupPerm& window, UsersTree&, GroupsTree& groupsTree) {
    log.statements.clear();
    EXPECT_EQ(groupsTree.EditGroupNode(), app::Outcome::kDone);
    const TreeNodes& nodes = Groups(window).Nodes();
    Strings expected{L"BeginRead"};
    for (const controls::NodeId group : nodes.ChildrenInOrder(nodes.Root())) {
      expected.push_back(data::SqlSelectGroupUsers(nodes.Id(group)));
    }
    expected.push_back(L"EndRead");
    EXPECT_EQ(log.statements, expected);
    EXPECT_EQ(expected.size(), 14u);
  });
}

TEST_F(Folders, EveryUsersGroupsAndPermissionsAreReadInOneRead) {
  RunWithTrees([this](frmUserGroupPerm& window, UsersTree& usersTree, GroupsTree&) {
    log.statements.clear();
    EXPECT_EQ(usersTree.EditUserNode(), app::Outcome::kDone);
    const TreeNodes& nodes = Users(window).Nodes();
    Strings expected{L"BeginRead"};
    for (const controls::NodeId account : nodes.ChildrenInOrder(nodes.Root())) {
      expected.push_back(data::SqlSelectUserGroups(nodes.Id(account)));
      expected.push_back(data::SqlSelectInheritedPermissions(nodes.Id(account)));
    }
    expected.push_back(L"EndRead");
    EXPECT_EQ(log.statements, expected);

    log.statements.clear();
    EXPECT_EQ(usersTree.EditAllPermissionsUserNode(), app::Outcome::kDone);
    EXPECT_EQ(log.statements.size(), 2u + 39u);
    EXPECT_EQ(log.statements[1].substr(0, 15), L"SELECT DISTINCT");
  });
}

TEST_F(Folders, RebuildingAllAccountsAsksForEachDisplayFormOnce) {
  RunWithTrees([this](frmUserGroupPerm&, UsersTree& usersTree, GroupsTree&) {
    log.serverCalls.clear();
    EXPECT_EQ(usersTree.EditUserNode(), app::Outcome::kDone);
    Strings calls = log.serverCalls;
    std::sort(calls.begin(), calls.end());
    EXPECT_EQ(std::adjacent_find(calls.begin(), calls.end()), calls.end());
    EXPECT_GT(calls.size(), 20u);
  });
}

TEST_F(Folders, TheFirstAccountThatCannotBeReadEndsTheRebuildOfAll) {
  RunWithTrees([this](frmUserGroupPerm&, UsersTree&, GroupsTree& groupsTree) {
    const std::wstring victim = data::SqlSelectGroupUsers(6);
    // Nor can any other account be read from then on.
    log.FailAt = [&, failing = false](const std::wstring& call) mutable {
      failing |= call == victim;
      return failing && call != L"EndRead" ? 3021L : 0L;
    };
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = L"GroupNode Error [3021]\r\ninjected: " + victim});
    EXPECT_EQ(groupsTree.EditGroupNode(), app::Outcome::kFailed);
    EXPECT_EQ((Strings{log.statements.end() - 2, log.statements.end()}),
              (Strings{victim, L"EndRead"}));
  });
}

TEST_F(Folders, AReadThatCannotBeginIsReportedUnderTheRebuildsName) {
  RunWithTrees([this](frmUserGroupPerm&, UsersTree& usersTree, GroupsTree&) {
    log.FailAt = [](const std::wstring& call) { return call == L"BeginRead" ? 5L : 0L; };
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = L"EditUserNode Error [5]\r\ninjected: BeginRead"});
    EXPECT_EQ(usersTree.EditUserNode(), app::Outcome::kFailed);
  });
}

}  // namespace
}  // namespace browser
