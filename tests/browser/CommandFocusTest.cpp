#include <gtest/gtest.h>

#include "dialogs/frmListItem.h"
#include "dialogs/frmNewUser.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using test_support::Keys;

// Where the keys go after a command that was given by mouse or menu.
class CommandFocus : public CommandTest {
 protected:
  void EscapeNext() {
    user.ExpectModal(
        [this](controls::Form& form) { user.PressKey(form, test_support::kKeyEscape); });
  }
};

TEST_F(CommandFocus, GoesBackToTheTreeSoThatKeysWork) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::GroupOfUser(9, 12));
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer ce membre du groupe ?");
    user.Click(window.Users.cmdMemberOf[kRemoveButton]);
    EXPECT_TRUE(window.Users.TreeView1.HasFocus());
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer ce membre du groupe ?");
    user.PressKey(window, controls::kKeyDelete);
    EscapeNext();
    user.Click(window.Users.cmdUser[kEditButton]);
    EscapeNext();
    user.PressKey(window, controls::kKeyF2);
    EXPECT_TRUE(window.Users.TreeView1.HasFocus());
  });
}

TEST_F(CommandFocus, IsOnTheNodeThatTheCommandLeftSelected) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::MemberOfGroup(6, 15));
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer ce membre ?");
    user.Click(window.Groups.cmdMember[kRemoveButton]);
    EXPECT_TRUE(window.Groups.TreeView1.HasFocus());
    const std::wstring next = Selected(window, kGroupsTree);
    EXPECT_NE(next, Keys::MemberOfGroup(6, 15));
    EXPECT_EQ(window.Groups.TreeView1.Nodes().Parent(At(window, kGroupsTree, next)),
              At(window, kGroupsTree, Keys::MembersOfGroup(6)));
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer ce membre ?");
    user.PressKey(window, controls::kKeyDelete);
    EXPECT_FALSE(Has(window, kGroupsTree, next));
  });
}

TEST_F(CommandFocus, IsOnANewAccount) {
  Run([this](frmUserGroupPerm& window) {
    ExpectDialog<dialogs::frmNewUser>([this](dialogs::frmNewUser& dialog) {
      user.Type(dialog.txtUserName, L"Lambert");
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
    });
    user.Click(window.Users.cmdUser[kNewButton]);
    EXPECT_TRUE(window.Users.TreeView1.HasFocus());
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer cet utilisateur ?");
    user.PressKey(window, controls::kKeyDelete);
  });
}

TEST_F(CommandFocus, GoesBackToTheTreeAfterARefreshByTheButton) {
  Run([this](frmUserGroupPerm& window) {
    user.ChooseTab(window.TabStrip1, kGroupsTree);
    user.Click(window.cmdBtn[kRefreshButton]);
    EXPECT_TRUE(window.Groups.TreeView1.HasFocus());
  });
}

}  // namespace
}  // namespace browser
