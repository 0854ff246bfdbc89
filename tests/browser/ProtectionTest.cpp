#include <gtest/gtest.h>

#include <functional>

#include "browser/rules/Protection.h"
#include "data/Text.h"
#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmListItem.h"
#include "dialogs/frmNewGroup.h"
#include "dialogs/frmNewUser.h"
#include "tests/support/keys/Keys.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using controls::CommandButton;
using controls::TreeView;
using test_support::Keys;
using test_support::kGroupsTree;
using test_support::kUsersTree;

// The buttons of a tab that a node leaves enabled: Edit, Delete and New, then Assign and Remove of
// the first links, then of the second; a dash stands for one that is off.
struct Row {
  int tree;
  std::wstring key;
  const char* buttons;
};

// Users 1 (Admin), 2 (Moreau, another administrator) and 9 (Martin); groups 1 (Administrators),
// 2 (Everyone) and 6 (Qualité).
const Row kForEverybody[] = {
    {kUsersTree, Keys::Root(), "--N -- --"},
    {kUsersTree, Keys::User(1), "E-N A- A-"},
    {kUsersTree, Keys::GroupsOfUser(1), "E-N A- --"},
    {kUsersTree, Keys::GroupOfUser(1, 1), "E-N A- --"},
    {kUsersTree, Keys::GroupOfUser(1, 2), "E-N A- --"},
    {kUsersTree, Keys::OwnPermissions(1), "E-N -- A-"},
    {kUsersTree, Keys::OwnPermission(1, 30), "E-N -- AR"},
    {kUsersTree, Keys::AllPermissions(1), "E-N -- --"},
    {kUsersTree, Keys::AnyPermission(1, 30), "E-N -- --"},
    {kUsersTree, Keys::User(9), "EDN A- A-"},
    {kUsersTree, Keys::GroupsOfUser(9), "EDN A- --"},
    {kUsersTree, Keys::GroupOfUser(9, 12), "EDN AR --"},
    {kUsersTree, Keys::GroupOfUser(9, 2), "EDN A- --"},
    {kUsersTree, Keys::OwnPermissions(9), "EDN -- A-"},
    {kUsersTree, Keys::OwnPermission(9, 14), "EDN -- AR"},
    {kUsersTree, Keys::AllPermissions(9), "EDN -- --"},
    {kUsersTree, Keys::AnyPermission(9, 14), "EDN -- --"},
    {kGroupsTree, Keys::Root(), "--N -- --"},
    {kGroupsTree, Keys::Group(1), "E-N A- --"},
    {kGroupsTree, Keys::MembersOfGroup(1), "E-N A- --"},
    // Shown as "Admin (Administrateur principal)", which is not the bare name.
    {kGroupsTree, Keys::MemberOfGroup(1, 1), "E-N AR --"},
    {kGroupsTree, Keys::MemberOfGroup(1, 2), "E-N AR --"},
    {kGroupsTree, Keys::GroupPermissions(1), "E-N -- --"},
    {kGroupsTree, Keys::GroupPermission(1, 29), "E-N -- --"},
    {kGroupsTree, Keys::Group(2), "E-N A- A-"},
    {kGroupsTree, Keys::MembersOfGroup(2), "E-N A- --"},
    {kGroupsTree, Keys::MemberOfGroup(2, 1), "E-N A- --"},
    {kGroupsTree, Keys::MemberOfGroup(2, 9), "E-N A- --"},
    {kGroupsTree, Keys::GroupPermissions(2), "E-N -- A-"},
    {kGroupsTree, Keys::GroupPermission(2, 2), "E-N -- AR"},
    {kGroupsTree, Keys::Group(6), "EDN A- A-"},
    {kGroupsTree, Keys::MembersOfGroup(6), "EDN A- --"},
    {kGroupsTree, Keys::MemberOfGroup(6, 15), "EDN AR --"},
    {kGroupsTree, Keys::GroupPermissions(6), "EDN -- A-"},
    {kGroupsTree, Keys::GroupPermission(6, 14), "EDN -- AR"},
};

// Moreau's own nodes, for Admin and for himself.
const Row kMoreauForAdmin[] = {
    {kUsersTree, Keys::User(2), "EDN A- A-"},
    {kUsersTree, Keys::GroupOfUser(2, 1), "EDN AR --"},
    {kUsersTree, Keys::GroupOfUser(2, 2), "EDN A- --"},
    {kUsersTree, Keys::GroupOfUser(2, 11), "EDN AR --"},
    {kUsersTree, Keys::OwnPermission(2, 29), "EDN -- AR"},
    {kUsersTree, Keys::AllPermissions(2), "EDN -- --"},
};
const Row kMoreauForHimself[] = {
    {kUsersTree, Keys::User(2), "E-N A- A-"},
    {kUsersTree, Keys::GroupOfUser(2, 1), "E-N AR --"},
    {kUsersTree, Keys::GroupOfUser(2, 2), "E-N A- --"},
    {kUsersTree, Keys::GroupOfUser(2, 11), "E-N AR --"},
    {kUsersTree, Keys::OwnPermission(2, 29), "E-N -- AR"},
    {kUsersTree, Keys::AllPermissions(2), "E-N -- --"},
};

class Protection : public test_support::MainWindowFixture {
 protected:
  static std::vector<CommandButton*> Buttons(frmUserGroupPerm& window, int tree) {
    const auto all = [](auto& account, auto& first, auto& second) {
      return std::vector<CommandButton*>{&account[0], &account[1], &account[2], &first[0],
                                         &first[1],   &second[0],  &second[1]};
    };
    return tree == kUsersTree
               ? all(window.Users.cmdUser, window.Users.cmdMemberOf, window.Users.cmdUserPermission)
               : all(window.Groups.cmdGroup, window.Groups.cmdMember,
                     window.Groups.cmdGroupPermission);
  }

  static std::string Enabled(frmUserGroupPerm& window, int tree) {
    std::string look = "EDN AR AR";
    constexpr std::size_t kPlaces[] = {0, 1, 2, 4, 5, 7, 8};
    const auto buttons = Buttons(window, tree);
    for (std::size_t i = 0; i < buttons.size(); ++i) {
      if (!buttons[i]->Enabled()) look[kPlaces[i]] = '-';
      EXPECT_EQ(buttons[i]->Enabled(), buttons[i]->WhyDisabled().empty()) << i;
    }
    return look;
  }

  void Select(frmUserGroupPerm& window, const Row& row) {
    user.ChooseTab(window.TabStrip1, row.tree);
    const controls::NodeId node = window.Page(row.tree).TreeView1.Nodes().Find(row.key);
    ASSERT_NE(node, controls::kNoNode) << data::ToUtf8(row.key);
    if (window.Page(row.tree).TreeView1.SelectedNode() != node) {
      user.Select(window.Page(row.tree).TreeView1, node);
    }
  }

  template <std::size_t kRows>
  void ExpectButtons(frmUserGroupPerm& window, const Row (&rows)[kRows]) {
    for (const Row& row : rows) {
      Select(window, row);
      EXPECT_EQ(Enabled(window, row.tree), row.buttons) << data::ToUtf8(row.key);
    }
  }

  // Everything that the program may write.
  std::vector<std::vector<std::string>> Stored() {
    auto raw = Raw();
    std::vector<std::vector<std::string>> all;
    for (const char* table : {"QRUSER", "QRGROUP", "QRUSGP", "QRUPRM", "QRGPRM"}) {
      for (auto& row : raw.Rows(std::string("SELECT * FROM ") + table + " ORDER BY 1, 2")) {
        all.push_back(std::move(row));
      }
    }
    return all;
  }

  template <typename Dialog>
  void ExpectDialog() {
    user.ExpectModal([this](controls::Form& form) {
      EXPECT_NE(dynamic_cast<Dialog*>(&form), nullptr);
      user.PressKey(form, test_support::kKeyEscape);
    });
  }

  void ExpectQuestion(const wchar_t* prompt) {
    user.ExpectMsgBox({.answer = controls::kResultNo,
                       .prompt = prompt,
                       .style = controls::kYesNo | controls::kCritical | controls::kDefaultButton2,
                       .title = L"Admin Utilisateurs"});
  }

  // What pressing an enabled button of the users tab brings up.
  void AnnounceForUsers(std::size_t button) {
    switch (button) {
      case 0:
        return ExpectDialog<dialogs::frmEditUser>();
      case 1:
        return ExpectQuestion(L"Souhaitez-vous supprimer cet utilisateur ?");
      case 2:
        return ExpectDialog<dialogs::frmNewUser>();
      case 4:
        return ExpectQuestion(L"Souhaitez-vous supprimer ce membre du groupe ?");
      case 6:
        return ExpectQuestion(L"Souhaitez-vous supprimer cette permission utilisateur ?");
      default:
        return ExpectDialog<dialogs::frmListItem>();
    }
  }

  void AnnounceForGroups(std::size_t button, const Row& row) {
    switch (button) {
      case 0:
        return ExpectDialog<dialogs::frmEditGroup>();
      case 1:
        return ExpectQuestion(L"Souhaitez-vous supprimer ce groupe ?");
      case 2:
        return ExpectDialog<dialogs::frmNewGroup>();
      case 3:
        return ExpectDialog<dialogs::frmAddUserInGroup>();
      case 4:
        if (row.key != Keys::MemberOfGroup(1, 1)) {
          return ExpectQuestion(L"Souhaitez-vous supprimer ce membre ?");
        }
        user.ExpectMsgBox({.answer = controls::kResultOk,
                           .prompt = L"Impossible de supprimer l'utilisateur de 'Admin "
                                     L"(Administrateur principal)' le groupe."});
        return;
      case 6:
        return ExpectQuestion(L"Souhaitez-vous supprimer cette permission de groupe ?");
      default:
        return ExpectDialog<dialogs::frmListItem>();
    }
  }

  // Presses every enabled button of every row and backs out of what it brings up.
  template <std::size_t kRows>
  void PressAll(frmUserGroupPerm& window, const Row (&rows)[kRows]) {
    const auto before = Stored();
    for (const Row& row : rows) {
      Select(window, row);
      const auto buttons = Buttons(window, row.tree);
      for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (!buttons[i]->Enabled()) continue;
        if (row.tree == kUsersTree) {
          AnnounceForUsers(i);
        } else {
          AnnounceForGroups(i, row);
        }
        user.Click(*buttons[i]);
        EXPECT_EQ(Enabled(window, row.tree), row.buttons) << data::ToUtf8(row.key) << " " << i;
        EXPECT_EQ(window.Page(row.tree).TreeView1.Nodes().Key(
                      window.Page(row.tree).TreeView1.SelectedNode()),
                  row.key);
      }
    }
    EXPECT_EQ(Stored(), before);
  }
};

TEST_F(Protection, AdminFindsTheButtonsThatEachNodeAllows) {
  Run([this](frmUserGroupPerm& window) {
    ExpectButtons(window, kForEverybody);
    ExpectButtons(window, kMoreauForAdmin);
  });
}

TEST_F(Protection, AnotherAdministratorFindsTheButtonsThatEachNodeAllows) {
  Run(
      [this](frmUserGroupPerm& window) {
        ExpectButtons(window, kForEverybody);
        ExpectButtons(window, kMoreauForHimself);
      },
      L"Moreau");
}

TEST_F(Protection, EveryEnabledButtonBringsUpItsDialogOrItsQuestionAndNoChangesNothing) {
  Run([this](frmUserGroupPerm& window) {
    PressAll(window, kForEverybody);
    PressAll(window, kMoreauForAdmin);
  });
}

TEST_F(Protection, SoItIsForAnotherAdministrator) {
  Run(
      [this](frmUserGroupPerm& window) {
        PressAll(window, kForEverybody);
        PressAll(window, kMoreauForHimself);
      },
      L"Moreau");
}

TEST_F(Protection, AdminShownByHisBareNameCannotBeTakenOutOfAdministrators) {
  Raw().Execute("UPDATE QRUSER SET FULLNAME = NULL WHERE USERID = 1");
  Run([this](frmUserGroupPerm& window) {
    const Row row{kGroupsTree, Keys::MemberOfGroup(1, 1), "E-N A- --"};
    Select(window, row);
    EXPECT_EQ(Enabled(window, kGroupsTree), row.buttons);
  });
}

TEST_F(Protection, WhereTheProtectedAccountsAreMissingNothingIsProtected) {
  Raw().Execute("UPDATE QRUSER SET NAME = 'Chef' WHERE USERID = 1");
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Maîtres' WHERE GROUPID = 1");
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Tous' WHERE GROUPID = 2");
  Run(
      [this](frmUserGroupPerm& window) {
        const Row kRows[] = {
            {kUsersTree, Keys::User(1), "EDN A- A-"},
            {kUsersTree, Keys::GroupOfUser(1, 1), "EDN AR --"},
            {kUsersTree, Keys::GroupOfUser(9, 2), "EDN AR --"},
            {kGroupsTree, Keys::Group(1), "EDN A- A-"},
            {kGroupsTree, Keys::MemberOfGroup(1, 1), "EDN AR --"},
            {kGroupsTree, Keys::GroupPermission(1, 29), "EDN -- AR"},
            {kGroupsTree, Keys::MemberOfGroup(2, 9), "EDN AR --"},
        };
        ExpectButtons(window, kRows);
        EXPECT_TRUE(window.Groups.IsRemoveAdmin);
        EXPECT_TRUE(window.Users.IsRemoveAdministrator);
      },
      L"Moreau");
}

TEST_F(Protection, TheFlagsForTheDialogsFollowTheSelection) {
  Run([this](frmUserGroupPerm& window) {
    const auto select = [&](int tree, const std::wstring& key) { Select(window, {tree, key, ""}); };
    select(kUsersTree, Keys::OwnPermissions(1));
    EXPECT_FALSE(window.Users.IsRemoveAdministrator);
    select(kUsersTree, Keys::GroupOfUser(9, 12));
    EXPECT_TRUE(window.Users.IsRemoveAdministrator);
    select(kGroupsTree, Keys::GroupPermissions(1));
    EXPECT_FALSE(window.Groups.IsRemoveAdmin);
    select(kGroupsTree, Keys::Group(2));
    EXPECT_TRUE(window.Groups.IsRemoveAdmin);
  });
}

TEST_F(Protection, ClosingTheNodeAboveTheSelectionSetsTheButtonsForTheNodeItPassesTo) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, {kUsersTree, Keys::GroupOfUser(9, 12), ""});
    EXPECT_EQ(Enabled(window, kUsersTree), "EDN AR --");
    TreeView& users = window.Users.TreeView1;
    user.Collapse(users, users.Nodes().Find(Keys::GroupsOfUser(9)));
    EXPECT_EQ(Enabled(window, kUsersTree), "EDN A- --");
    user.Collapse(users, users.Nodes().Root());
    EXPECT_EQ(Enabled(window, kUsersTree), "--N -- --");
  });
}

// The handlers do not lean on the buttons alone.
TEST_F(Protection, CommandsGivenPastTheButtonsLeaveProtectedAccountsAlone) {
  Run([this](frmUserGroupPerm& window) {
    const auto before = Stored();
    const auto select = [&](int tree, const std::wstring& key) { Select(window, {tree, key, ""}); };
    select(kUsersTree, Keys::User(1));
    window.Users.cmdUser_Click(kDeleteButton);
    select(kUsersTree, Keys::GroupOfUser(1, 1));
    window.Users.cmdMemberOf_Click(kRemoveButton);
    select(kUsersTree, Keys::GroupOfUser(9, 2));
    window.Users.cmdMemberOf_Click(kRemoveButton);
    select(kGroupsTree, Keys::Group(1));
    window.Groups.cmdGroup_Click(kDeleteButton);
    window.Groups.cmdGroupPermission_Click(kAssignButton);
    select(kGroupsTree, Keys::GroupPermission(1, 29));
    window.Groups.cmdGroupPermission_Click(kRemoveButton);
    select(kGroupsTree, Keys::Group(2));
    window.Groups.cmdGroup_Click(kDeleteButton);
    select(kGroupsTree, Keys::MemberOfGroup(2, 9));
    window.Groups.cmdMember_Click(kRemoveButton);
    EXPECT_EQ(Stored(), before);
  });
}

TEST(ProtectionRules, AMemberNamedLikeAdminInAnotherCaseMayLeaveAdministrators) {
  ProtectedAccounts accounts;
  accounts.administratorsGroupId = 1;
  EXPECT_TRUE(ProtectGroup(accounts, 1, L"Admin").member);
  for (const wchar_t* text : {L"admin", L"ADMIN", L"Admin "}) {
    EXPECT_FALSE(ProtectGroup(accounts, 1, text).member);
  }
}

TEST(ProtectionRules, AnIdentifierThatWasNotFoundProtectsNoAccountOfNumberZero) {
  const ProtectedAccounts none;
  const UserProtection user = ProtectUser(none, 0, 0);
  EXPECT_FALSE(user.account || user.membership || user.administrator);
  const GroupProtection group = ProtectGroup(none, 0, L"Admin");
  EXPECT_FALSE(group.account || group.member || group.permissions || group.admin);
}

}  // namespace
}  // namespace browser
