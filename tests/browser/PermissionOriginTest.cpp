#include <gtest/gtest.h>

#include "app/StringIds.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using controls::TreeView;
using test_support::Keys;

// Where the permissions in a user's folder of all permissions come from.
class PermissionOrigins : public CommandTest {
 protected:
  std::wstring Tip(frmUserGroupPerm& window, const std::wstring& key) {
    const controls::NodeId node = At(window, kUsersTree, key);
    EXPECT_NE(node, controls::kNoNode);
    return user.TipOf(window.Users.TreeView1, node);
  }
};

TEST_F(PermissionOrigins, OneGroupIsNamed) {
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(Tip(window, Keys::AnyPermission(9, 16)), L"Par le groupe Production");
  });
}

TEST_F(PermissionOrigins, AGroupIsNamedByItsDisplayFormWithoutItsDescription) {
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(Tip(window, Keys::AnyPermission(9, 2)), L"Par le groupe Tout le monde");
  });
}

TEST_F(PermissionOrigins, SeveralGroupsAreNamedInTheirOrder) {
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(Tip(window, Keys::AnyPermission(16, 18)), L"Par les groupes Méthodes et Production");
    Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (16, 6)");
    EXPECT_EQ(window.RefreshTree(), app::Outcome::kDone);
    EXPECT_EQ(Tip(window, Keys::AnyPermission(16, 18)),
              L"Par les groupes Méthodes, Production et Qualité");
  });
}

TEST_F(PermissionOrigins, TheUserHimselfIsNamedWhereHeHoldsItAlone) {
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(Tip(window, Keys::AnyPermission(3, 11)), L"Accordée directement");
  });
}

TEST_F(PermissionOrigins, TheUserHimselfComesBeforeHisGroups) {
  Raw().Execute("INSERT INTO QRUPRM (USERID, PERMID) VALUES (16, 18)");
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(Tip(window, Keys::AnyPermission(9, 20)),
              L"Accordée directement et par le groupe Laboratoire");
    EXPECT_EQ(Tip(window, Keys::AnyPermission(16, 18)),
              L"Accordée directement et par les groupes Méthodes et Production");
  });
}

TEST_F(PermissionOrigins, AGroupWhoseNameHasParenthesesIsNamedWithAllThatIsShown) {
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Labo (A)', DESCR = 'B' WHERE GROUPID = 7");
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(Tip(window, Keys::AnyPermission(9, 16)), L"Par le groupe Labo (A) (B)");
  });
}

TEST_F(PermissionOrigins, AGroupWhoseNameHoldsAPlaceholderIsNamedAsItIs) {
  Raw().Execute("UPDATE QRGROUP SET NAME = '%1 & %2 \"x\"', DESCR = NULL WHERE GROUPID = 7");
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(Tip(window, Keys::AnyPermission(9, 16)), L"Par le groupe %1 & %2 \"x\"");
    Select(window, kUsersTree, Keys::AnyPermission(9, 16));
    EXPECT_EQ(window.lblStatus.Caption(), L"Par le groupe %1 & %2 \"x\"");
  });
}

// The trees may be out of step until the next refresh.
TEST_F(PermissionOrigins, WhatTheTreesDoNotTellIsSaidToBeUnknown) {
  Run([this](frmUserGroupPerm& window) {
    window.Groups.TreeView1.Remove(At(window, kGroupsTree, Keys::GroupPermission(7, 16)));
    EXPECT_EQ(Tip(window, Keys::AnyPermission(9, 16)),
              L"Origine inconnue : cliquez sur Rafraîchir.");
  });
}

TEST_F(PermissionOrigins, OtherNodesHaveNone) {
  Run([this](frmUserGroupPerm& window) {
    for (const std::wstring& key :
         {Keys::Root(), Keys::User(9), Keys::GroupsOfUser(9), Keys::GroupOfUser(9, 12),
          Keys::OwnPermissions(9), Keys::OwnPermission(9, 14), Keys::AllPermissions(9)}) {
      EXPECT_EQ(Tip(window, key), L"");
    }
    const TreeView& groups = window.Groups.TreeView1;
    EXPECT_EQ(groups.Tip, nullptr);
  });
}

TEST_F(PermissionOrigins, AreKnownWithoutAnythingBeingSent) {
  Run([this](frmUserGroupPerm& window) {
    log.calls.clear();
    Tip(window, Keys::AnyPermission(9, 16));
    Select(window, kUsersTree, Keys::AnyPermission(9, 14));
    EXPECT_TRUE(log.calls.empty());
  });
}

TEST_F(PermissionOrigins, TheStatusLineShowsThatOfTheSelectedPermission) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::AnyPermission(3, 11));
    EXPECT_EQ(window.lblStatus.Caption(), L"Accordée directement");
    Select(window, kUsersTree, Keys::AllPermissions(3));
    EXPECT_EQ(window.lblStatus.Caption(), L"39 utilisateurs, 12 groupes, 30 permissions");
    Select(window, kUsersTree, Keys::AnyPermission(3, 11));
    Select(window, kGroupsTree, Keys::Group(6));
    EXPECT_EQ(window.lblStatus.Caption(), L"39 utilisateurs, 12 groupes, 30 permissions");
    user.ChooseTab(window.TabStrip1, kUsersTree);
    EXPECT_EQ(window.lblStatus.Caption(), L"Accordée directement");
  });
}

TEST_F(PermissionOrigins, FollowACommandAtOnce) {
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(Tip(window, Keys::AnyPermission(9, 20)),
              L"Accordée directement et par le groupe Laboratoire");
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer ce membre du groupe ?");
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
    EXPECT_EQ(Tip(window, Keys::AnyPermission(9, 20)), L"Accordée directement");
  });
}

TEST_F(PermissionOrigins, WhatAnErrorHasLeftOutComesFirstInTheStatusLine) {
  Run([this](frmUserGroupPerm& window) {
    log.FailAt = [](const std::wstring& call) { return call == L"EndRead" ? 3L : 0L; };
    user.ExpectMsgBox(controls::kResultOk);
    EXPECT_EQ(window.RefreshTree(), app::Outcome::kFailed);
    log.FailAt = {};
    Select(window, kUsersTree, Keys::AnyPermission(3, 11));
    EXPECT_EQ(window.lblStatus.Caption(), Text(app::kAccountsIncomplete));
  });
}

}  // namespace
}  // namespace browser
