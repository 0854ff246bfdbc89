// What is said of a command that is off.

#include "app/StringIds.h"
#include "browser/rules/ButtonRules.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using controls::CommandButton;
using test_support::Keys;

class WhyNot : public CommandTest {
 protected:
  // The tip of a button with the node of this key selected.
  std::wstring Tip(frmUserGroupPerm& window, int tree, const std::wstring& key,
                   const CommandButton& button) {
    Select(window, tree, key);
    return user.TipOf(button);
  }
  static std::wstring Status(frmUserGroupPerm& window) { return window.lblStatus.Caption(); }
};

TEST_F(WhyNot, WithoutAnAccountOneIsToBeSelected) {
  Run([this](frmUserGroupPerm& window) {
    const std::wstring root = Keys::Root();
    const std::wstring aUser = L"Sélectionnez d'abord un utilisateur.";
    EXPECT_EQ(Tip(window, kUsersTree, root, window.Users.cmdUser[kEditButton]), aUser);
    EXPECT_EQ(Tip(window, kUsersTree, root, window.Users.cmdUser[kDeleteButton]), aUser);
    EXPECT_EQ(Tip(window, kUsersTree, root, window.Users.cmdMemberOf[kAssignButton]), aUser);
    EXPECT_EQ(Tip(window, kUsersTree, root, window.Users.cmdUser[kNewButton]), L"");
    EXPECT_EQ(Tip(window, kGroupsTree, root, window.Groups.cmdGroup[kEditButton]),
              L"Sélectionnez d'abord un groupe.");
  });
}

TEST_F(WhyNot, WithAnotherFolderTheButtonsOwnIsNamed) {
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(
        Tip(window, kUsersTree, Keys::OwnPermissions(9), window.Users.cmdMemberOf[kAssignButton]),
        L"Sélectionnez l'utilisateur lui-même ou son dossier \"Membre du Groupe\".");
    EXPECT_EQ(Tip(window, kGroupsTree, Keys::MembersOfGroup(6),
                  window.Groups.cmdGroupPermission[kAssignButton]),
              L"Sélectionnez le groupe lui-même ou son dossier \"Droits du Groupe\".");
  });
}

TEST_F(WhyNot, ALinkIsToBeSelectedBeforeItIsRemoved) {
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(Tip(window, kUsersTree, Keys::User(9), window.Users.cmdMemberOf[kRemoveButton]),
              L"Sélectionnez le groupe à supprimer puis cliquez sur le bouton Supprimer dans la "
              L"section Membre du Groupe.");
    EXPECT_EQ(Tip(window, kUsersTree, Keys::User(9), window.Users.cmdUserPermission[kRemoveButton]),
              L"Sélectionnez la permission à supprimer puis cliquez sur le bouton Supprimer dans "
              L"la section Droits Utilisateur.");
    EXPECT_EQ(Tip(window, kGroupsTree, Keys::Group(6), window.Groups.cmdMember[kRemoveButton]),
              L"Sélectionnez d'abord un membre du groupe.");
  });
}

TEST_F(WhyNot, WhatIsDerivedIsRemovedWhereItComesFrom) {
  Run([this](frmUserGroupPerm& window) {
    const std::wstring why = app::FillIn(Text(app::kDerivedPermissions), {L"Droits Utilisateur"});
    EXPECT_EQ(Tip(window, kUsersTree, Keys::AnyPermission(9, 14),
                  window.Users.cmdUserPermission[kRemoveButton]),
              why);
    user.PressKey(window, controls::kKeyDelete);
    EXPECT_EQ(Status(window), why);
  });
}

TEST_F(WhyNot, AProtectedAccountSaysWhoItIs) {
  Run([this](frmUserGroupPerm& window) {
    EXPECT_EQ(Tip(window, kUsersTree, Keys::User(1), window.Users.cmdUser[kDeleteButton]),
              Text(app::kMainAdministrator));
    EXPECT_EQ(
        Tip(window, kUsersTree, Keys::GroupOfUser(1, 1), window.Users.cmdMemberOf[kRemoveButton]),
        Text(app::kMainAdministratorStays));
    EXPECT_EQ(
        Tip(window, kUsersTree, Keys::GroupOfUser(9, 2), window.Users.cmdMemberOf[kRemoveButton]),
        Text(app::kEverybodyIsMember));
    EXPECT_EQ(Tip(window, kGroupsTree, Keys::Group(1), window.Groups.cmdGroup[kDeleteButton]),
              Text(app::kNeededGroup));
    for (const CommandButton& button : window.Groups.cmdGroupPermission) {
      EXPECT_EQ(Tip(window, kGroupsTree, Keys::GroupPermissions(1), button),
                Text(app::kAdministratorsPermissions));
    }
    EXPECT_EQ(Tip(window, kGroupsTree, Keys::Group(2), window.Groups.cmdMember[kRemoveButton]),
              Text(app::kEverybodyIsMember));
  });
}

TEST_F(WhyNot, AKeyForACommandThatIsOffHasTheStatusLineSayWhy) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(1));
    user.PressKey(window, controls::kKeyDelete);
    EXPECT_EQ(Status(window), Text(app::kMainAdministrator));
    user.PressCtrl(window, 'Q');
    EXPECT_EQ(Status(window), Text(app::kSelectPermission));
    Select(window, kUsersTree, Keys::Root());
    EXPECT_NE(Status(window), Text(app::kSelectPermission)) << "another selection, another line";
    user.PressKey(window, controls::kKeyF2);
    EXPECT_EQ(Status(window), Text(app::kSelectUser));
    user.PressCtrl(window, 'M');
    EXPECT_EQ(Status(window), Text(app::kSelectGroup));
    user.PressCtrl(window, 'D');
    EXPECT_EQ(Status(window), Text(app::kSelectUser));
  });
}

TEST_F(WhyNot, AFailedReadIsTheReasonNextToNone) {
  const WhyOff names{app::kAccountsIncomplete};
  EXPECT_EQ(ButtonRuleOf(kUsersTab, L"US", false).edit, names);
  EXPECT_EQ(ButtonRuleOf(kUsersTab, L"US", false).create, names);
  EXPECT_EQ(ButtonRuleOf(kUsersTab, L"", false).edit, WhyOff{app::kSelectUser});
  EXPECT_FALSE(ButtonRuleOf(kUsersTab, L"US", false).remove);
  EXPECT_FALSE(ButtonRuleOf(kUsersTab, L"US", true).edit);
}

}  // namespace
}  // namespace browser
