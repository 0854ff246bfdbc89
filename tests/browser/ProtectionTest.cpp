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
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using controls::CommandButton;
using controls::TreeView;

// The buttons of a tab that a node leaves enabled: Edit, Delete and New, then Assign and Remove of
// the first links, then of the second; a dash stands for one that is off.
struct Row {
  int tree;
  const wchar_t* key;
  const char* buttons;
};

// Users 1 (Admin), 2 (Moreau, another administrator) and 9 (Martin); groups 1 (Administrators),
// 2 (Everyone) and 6 (Qualité).
constexpr Row kForEverybody[] = {
    {0, L"\\TRT ", "--N -- --"},
    {0, L"\\TUS \\U1", "E-N A- A-"},
    {0, L"\\TMO \\U1 \\G", "E-N A- --"},
    {0, L"\\TGU \\U1 \\G1", "E-N A- --"},
    {0, L"\\TGU \\U1 \\G2", "E-N A- --"},
    {0, L"\\TUP \\U1 \\P", "E-N -- A-"},
    {0, L"\\TPU \\U1 \\P30", "E-N -- AR"},
    {0, L"\\TAP \\U1 \\P", "E-N -- --"},
    {0, L"\\TPA \\U1 \\P30", "E-N -- --"},
    {0, L"\\TUS \\U9", "EDN A- A-"},
    {0, L"\\TMO \\U9 \\G", "EDN A- --"},
    {0, L"\\TGU \\U9 \\G12", "EDN AR --"},
    {0, L"\\TGU \\U9 \\G2", "EDN A- --"},
    {0, L"\\TUP \\U9 \\P", "EDN -- A-"},
    {0, L"\\TPU \\U9 \\P14", "EDN -- AR"},
    {0, L"\\TAP \\U9 \\P", "EDN -- --"},
    {0, L"\\TPA \\U9 \\P14", "EDN -- --"},
    {1, L"\\TRT ", "--N -- --"},
    {1, L"\\TGR \\G1", "E-N A- --"},
    {1, L"\\TMS \\G1 \\U", "E-N A- --"},
    // Shown as "Admin (Administrateur principal)", which is not the bare name.
    {1, L"\\TUG \\G1 \\U1", "E-N AR --"},
    {1, L"\\TUG \\G1 \\U2", "E-N AR --"},
    {1, L"\\TGP \\G1 \\P", "E-N -- --"},
    {1, L"\\TPG \\G1 \\P29", "E-N -- --"},
    {1, L"\\TGR \\G2", "E-N A- A-"},
    {1, L"\\TMS \\G2 \\U", "E-N A- --"},
    {1, L"\\TUG \\G2 \\U1", "E-N A- --"},
    {1, L"\\TUG \\G2 \\U9", "E-N A- --"},
    {1, L"\\TGP \\G2 \\P", "E-N -- A-"},
    {1, L"\\TPG \\G2 \\P2", "E-N -- AR"},
    {1, L"\\TGR \\G6", "EDN A- A-"},
    {1, L"\\TMS \\G6 \\U", "EDN A- --"},
    {1, L"\\TUG \\G6 \\U15", "EDN AR --"},
    {1, L"\\TGP \\G6 \\P", "EDN -- A-"},
    {1, L"\\TPG \\G6 \\P14", "EDN -- AR"},
};

// Moreau's own nodes, for Admin and for himself.
constexpr Row kMoreauForAdmin[] = {
    {0, L"\\TUS \\U2", "EDN A- A-"},       {0, L"\\TGU \\U2 \\G1", "EDN AR --"},
    {0, L"\\TGU \\U2 \\G2", "EDN A- --"},  {0, L"\\TGU \\U2 \\G11", "EDN AR --"},
    {0, L"\\TPU \\U2 \\P29", "EDN -- AR"}, {0, L"\\TAP \\U2 \\P", "EDN -- --"},
};
constexpr Row kMoreauForHimself[] = {
    {0, L"\\TUS \\U2", "E-N A- A-"},       {0, L"\\TGU \\U2 \\G1", "E-N AR --"},
    {0, L"\\TGU \\U2 \\G2", "E-N A- --"},  {0, L"\\TGU \\U2 \\G11", "E-N AR --"},
    {0, L"\\TPU \\U2 \\P29", "E-N -- AR"}, {0, L"\\TAP \\U2 \\P", "E-N -- --"},
};

class Protection : public test_support::MainWindowFixture {
 protected:
  static std::vector<CommandButton*> Buttons(frmUserGroupPerm& window, int tree) {
    const auto all = [](auto& account, auto& first, auto& second) {
      return std::vector<CommandButton*>{&account[0], &account[1], &account[2], &first[0],
                                         &first[1],   &second[0],  &second[1]};
    };
    return tree == 0
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
    }
    return look;
  }

  void Select(frmUserGroupPerm& window, const Row& row) {
    user.ChooseTab(window.TabStrip1, row.tree);
    const int node = window.Page(row.tree).TreeView1.Nodes().Find(row.key);
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
        if (std::wstring_view(row.key) != L"\\TUG \\G1 \\U1") {
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
        if (row.tree == 0) {
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
    const Row row{1, L"\\TUG \\G1 \\U1", "E-N A- --"};
    Select(window, row);
    EXPECT_EQ(Enabled(window, 1), row.buttons);
  });
}

TEST_F(Protection, WhereTheProtectedAccountsAreMissingNothingIsProtected) {
  Raw().Execute("UPDATE QRUSER SET NAME = 'Chef' WHERE USERID = 1");
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Maîtres' WHERE GROUPID = 1");
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Tous' WHERE GROUPID = 2");
  Run(
      [this](frmUserGroupPerm& window) {
        constexpr Row kRows[] = {
            {0, L"\\TUS \\U1", "EDN A- A-"},      {0, L"\\TGU \\U1 \\G1", "EDN AR --"},
            {0, L"\\TGU \\U9 \\G2", "EDN AR --"}, {1, L"\\TGR \\G1", "EDN A- A-"},
            {1, L"\\TUG \\G1 \\U1", "EDN AR --"}, {1, L"\\TPG \\G1 \\P29", "EDN -- AR"},
            {1, L"\\TUG \\G2 \\U9", "EDN AR --"},
        };
        ExpectButtons(window, kRows);
        EXPECT_TRUE(window.Groups.IsRemoveAdmin);
        EXPECT_TRUE(window.Users.IsRemoveAdministrator);
      },
      L"Moreau");
}

TEST_F(Protection, TheFlagsForTheDialogsFollowTheSelection) {
  Run([this](frmUserGroupPerm& window) {
    const auto select = [&](int tree, const wchar_t* key) { Select(window, {tree, key, ""}); };
    select(0, L"\\TUP \\U1 \\P");
    EXPECT_FALSE(window.Users.IsRemoveAdministrator);
    select(0, L"\\TGU \\U9 \\G12");
    EXPECT_TRUE(window.Users.IsRemoveAdministrator);
    select(1, L"\\TGP \\G1 \\P");
    EXPECT_FALSE(window.Groups.IsRemoveAdmin);
    select(1, L"\\TGR \\G2");
    EXPECT_TRUE(window.Groups.IsRemoveAdmin);
  });
}

TEST_F(Protection, ClosingTheNodeAboveTheSelectionSetsTheButtonsForTheNodeItPassesTo) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, {0, L"\\TGU \\U9 \\G12", ""});
    EXPECT_EQ(Enabled(window, 0), "EDN AR --");
    TreeView& users = window.Users.TreeView1;
    user.Collapse(users, users.Nodes().Find(L"\\TMO \\U9 \\G"));
    EXPECT_EQ(Enabled(window, 0), "EDN A- --");
    user.Collapse(users, users.Nodes().Root());
    EXPECT_EQ(Enabled(window, 0), "--N -- --");
  });
}

// The handlers do not lean on the buttons alone.
TEST_F(Protection, CommandsGivenPastTheButtonsLeaveProtectedAccountsAlone) {
  Run([this](frmUserGroupPerm& window) {
    const auto before = Stored();
    const auto select = [&](int tree, const wchar_t* key) { Select(window, {tree, key, ""}); };
    select(0, L"\\TUS \\U1");
    window.Users.cmdUser_Click(1);
    select(0, L"\\TGU \\U1 \\G1");
    window.Users.cmdMemberOf_Click(1);
    select(0, L"\\TGU \\U9 \\G2");
    window.Users.cmdMemberOf_Click(1);
    select(1, L"\\TGR \\G1");
    window.Groups.cmdGroup_Click(1);
    window.Groups.cmdGroupPermission_Click(0);
    select(1, L"\\TPG \\G1 \\P29");
    window.Groups.cmdGroupPermission_Click(1);
    select(1, L"\\TGR \\G2");
    window.Groups.cmdGroup_Click(1);
    select(1, L"\\TUG \\G2 \\U9");
    window.Groups.cmdMember_Click(1);
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
