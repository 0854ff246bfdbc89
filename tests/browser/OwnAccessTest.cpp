#include "browser/rules/OwnAccess.h"

#include <gtest/gtest.h>

#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Buttons.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using controls::kResultNo;
using controls::kResultYes;
using test_support::Keys;
using test_support::kGroupsTree;
using test_support::kUsersTree;

constexpr const wchar_t* kLockedOut =
    L"Après cette modification, votre propre compte n'aura plus le droit d'administrer les "
    L"utilisateurs :\r\nl'accès à ce programme vous sera refusé au prochain démarrage.\r\n"
    L"Souhaitez-vous poursuivre ?";

constexpr const wchar_t* kLeaveGroup = L"Souhaitez-vous supprimer ce membre du groupe ?";
constexpr const wchar_t* kTakeMember = L"Souhaitez-vous supprimer ce membre ?";
constexpr const wchar_t* kTakeUserPermission =
    L"Souhaitez-vous supprimer cette permission utilisateur ?";
constexpr const wchar_t* kTakeGroupPermission =
    L"Souhaitez-vous supprimer cette permission de groupe ?";
constexpr const wchar_t* kDeleteGroup = L"Souhaitez-vous supprimer ce groupe ?";

// Moreau (2) administers users, because he is in Administrators (1), which gives permission 1. He
// also is in Informatique (11), and holds 29 himself.
class OwnAccessWarning : public CommandTest {
 protected:
  using Box = controls::CommandButton;

  // What gives him the right, instead of Administrators.
  void GiveByInformatique() {
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 2 AND GROUPID = 1");
    Raw().Execute("INSERT INTO QRGPRM (GROUPID, PERMID) VALUES (11, 1)");
  }
  void GiveDirectly() {
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 2 AND GROUPID = 1");
    Raw().Execute("INSERT INTO QRUPRM (USERID, PERMID) VALUES (2, 1)");
  }
  void RunAsMoreau(const WindowScript& script) { Run(script, L"Moreau"); }

  void ExpectLockedOut(int answer, Where where = Where::current()) {
    user.ExpectMsgBox(
        {.answer = answer,
         .prompt = kLockedOut,
         .style = controls::kYesNo | controls::kExclamation | controls::kDefaultButton2,
         .title = L"Admin Utilisateurs"},
        where);
  }

  // The removal asks once more. With No nothing is sent and nothing changes, with Yes it is done.
  void ExpectWarned(frmUserGroupPerm& window, int tree, const std::wstring& key, Box& remove,
                    const wchar_t* question) {
    Select(window, tree, key);
    const Strings before = Look(window);
    ExpectQuestion(kResultYes, question);
    ExpectLockedOut(kResultNo);
    log.statements.clear();
    user.Click(remove);
    EXPECT_TRUE(log.statements.empty());
    EXPECT_EQ(Look(window), before);
    EXPECT_EQ(Selected(window, tree), key);
    ExpectQuestion(kResultYes, question);
    ExpectLockedOut(kResultYes);
    user.Click(remove);
    EXPECT_FALSE(Has(window, tree, key));
  }

  void ExpectNotWarned(frmUserGroupPerm& window, int tree, const std::wstring& key, Box& remove,
                       const wchar_t* question) {
    Select(window, tree, key);
    ExpectQuestion(kResultYes, question);
    user.Click(remove);
    EXPECT_FALSE(Has(window, tree, key));
  }

  // Presses OK twice, with No and then with Yes to the warning. The first leaves the dialog open.
  template <typename Dialog>
  void ExpectWarnedBySave(Dialog& dialog) {
    ExpectLockedOut(kResultNo);
    log.statements.clear();
    user.Click(dialog.cmdOK);
    EXPECT_TRUE(dialog.IsLoaded());
    EXPECT_TRUE(log.statements.empty());
    ExpectLockedOut(kResultYes);
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
  }

  static int ItemOf(const controls::ListBox& list, std::int32_t id) {
    int item = 0;
    while (list.ItemData(item) != id) ++item;
    return item;
  }
};

TEST_F(OwnAccessWarning, ComesBeforeTheLastMembershipIsTakenAwayOnTheUsersTab) {
  RunAsMoreau([this](frmUserGroupPerm& window) {
    ExpectWarned(window, kUsersTree, Keys::GroupOfUser(2, 1),
                 window.Users.cmdMemberOf[kRemoveButton], kLeaveGroup);
  });
}

TEST_F(OwnAccessWarning, ComesBeforeTheLastMembershipIsTakenAwayOnTheGroupsTab) {
  RunAsMoreau([this](frmUserGroupPerm& window) {
    ExpectWarned(window, kGroupsTree, Keys::MemberOfGroup(1, 2),
                 window.Groups.cmdMember[kRemoveButton], kTakeMember);
  });
}

TEST_F(OwnAccessWarning, ComesBeforeTheUsersOwnPermissionIsTakenAway) {
  GiveDirectly();
  RunAsMoreau([this](frmUserGroupPerm& window) {
    ExpectWarned(window, kUsersTree, Keys::OwnPermission(2, 1),
                 window.Users.cmdUserPermission[kRemoveButton], kTakeUserPermission);
  });
}

TEST_F(OwnAccessWarning, ComesBeforeThePermissionOfHisGroupIsTakenAway) {
  GiveByInformatique();
  RunAsMoreau([this](frmUserGroupPerm& window) {
    ExpectWarned(window, kGroupsTree, Keys::GroupPermission(11, 1),
                 window.Groups.cmdGroupPermission[kRemoveButton], kTakeGroupPermission);
  });
}

TEST_F(OwnAccessWarning, ComesBeforeHisGroupIsDeleted) {
  GiveByInformatique();
  RunAsMoreau([this](frmUserGroupPerm& window) {
    ExpectWarned(window, kGroupsTree, Keys::Group(11), window.Groups.cmdGroup[kDeleteButton],
                 kDeleteGroup);
  });
}

TEST_F(OwnAccessWarning, ComesBeforeHisAccountIsSaved) {
  RunAsMoreau([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(2));
    user.ExpectModal([this](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmEditUser&>(form);
      controls::ListBox& groups = dialog.List1[test_support::kGroupsList];
      user.Toggle(groups, ItemOf(groups, 1));
      ExpectWarnedBySave(dialog);
    });
    user.Click(window.Users.cmdUser[kEditButton]);
    EXPECT_FALSE(Has(window, kUsersTree, Keys::GroupOfUser(2, 1)));
  });
}

TEST_F(OwnAccessWarning, ComesBeforeHisGroupIsSavedWithoutThePermissionOrWithoutHim) {
  GiveByInformatique();
  RunAsMoreau([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::Group(11));
    user.ExpectModal([this](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmEditGroup&>(form);
      controls::ListBox& permissions = dialog.List1[test_support::kPermissionsList];
      controls::ListBox& members = dialog.List1[test_support::kMembersList];
      user.Choose(members, ItemOf(members, 2));
      user.Click(dialog.cmdBtn[test_support::kRemoveMemberButton]);
      ExpectLockedOut(kResultNo);
      user.Click(dialog.cmdOK);
      EXPECT_TRUE(dialog.IsLoaded());
      user.Toggle(permissions, ItemOf(permissions, 1));
      ExpectWarnedBySave(dialog);
    });
    user.Click(window.Groups.cmdGroup[kEditButton]);
    EXPECT_FALSE(Has(window, kGroupsTree, Keys::GroupPermission(11, 1)));
  });
}

TEST_F(OwnAccessWarning, ComesBeforeHisGroupLosesAllItsMembers) {
  GiveByInformatique();
  RunAsMoreau([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::MembersOfGroup(11));
    user.ExpectModal([this](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmAddUserInGroup&>(form);
      user.Click(dialog.cmdBtn[test_support::kTakeAllButton]);
      ExpectWarnedBySave(dialog);
    });
    user.Click(window.Groups.cmdMember[kAssignButton]);
    EXPECT_FALSE(Has(window, kGroupsTree, Keys::MemberOfGroup(11, 2)));
  });
}

TEST_F(OwnAccessWarning, DoesNotComeWhileAnotherWayIsLeft) {
  Raw().Execute("INSERT INTO QRUPRM (USERID, PERMID) VALUES (2, 1)");
  Raw().Execute("INSERT INTO QRGPRM (GROUPID, PERMID) VALUES (11, 1)");
  RunAsMoreau([this](frmUserGroupPerm& window) {
    ExpectNotWarned(window, kUsersTree, Keys::GroupOfUser(2, 1),
                    window.Users.cmdMemberOf[kRemoveButton], kLeaveGroup);
    ExpectNotWarned(window, kUsersTree, Keys::OwnPermission(2, 1),
                    window.Users.cmdUserPermission[kRemoveButton], kTakeUserPermission);
    ExpectWarned(window, kGroupsTree, Keys::GroupPermission(11, 1),
                 window.Groups.cmdGroupPermission[kRemoveButton], kTakeGroupPermission);
  });
}

TEST_F(OwnAccessWarning, DoesNotComeForOtherPermissionsGroupsAndUsers) {
  RunAsMoreau([this](frmUserGroupPerm& window) {
    ExpectNotWarned(window, kUsersTree, Keys::OwnPermission(2, 29),
                    window.Users.cmdUserPermission[kRemoveButton], kTakeUserPermission);
    ExpectNotWarned(window, kUsersTree, Keys::GroupOfUser(2, 11),
                    window.Users.cmdMemberOf[kRemoveButton], kLeaveGroup);
    ExpectNotWarned(window, kUsersTree, Keys::GroupOfUser(30, 11),
                    window.Users.cmdMemberOf[kRemoveButton], kLeaveGroup);
    ExpectNotWarned(window, kGroupsTree, Keys::Group(11), window.Groups.cmdGroup[kDeleteButton],
                    kDeleteGroup);
  });
  UseSample();
  // To Admin, Moreau is somebody else.
  Run([this](frmUserGroupPerm& window) {
    ExpectNotWarned(window, kGroupsTree, Keys::MemberOfGroup(1, 2),
                    window.Groups.cmdMember[kRemoveButton], kTakeMember);
  });
}

// Nothing is named as the program is: what counts then is all that Administrators gives.
TEST_F(OwnAccessWarning, GoesByWhatAdministratorsGiveWhereNoPermissionBearsTheName) {
  Raw().Execute("UPDATE QRPERM SET NAME = 'Gestion' WHERE PERMID = 1");
  RunAsMoreau([this](frmUserGroupPerm& window) {
    ExpectNotWarned(window, kUsersTree, Keys::GroupOfUser(2, 11),
                    window.Users.cmdMemberOf[kRemoveButton], kLeaveGroup);
    ExpectNotWarned(window, kUsersTree, Keys::OwnPermission(2, 29),
                    window.Users.cmdUserPermission[kRemoveButton], kTakeUserPermission);
    ExpectWarned(window, kUsersTree, Keys::GroupOfUser(2, 1),
                 window.Users.cmdMemberOf[kRemoveButton], kLeaveGroup);
  });
}

TEST_F(OwnAccessWarning, DoesNotComeWhereNothingIsKnownOfTheRight) {
  Raw().Execute("UPDATE QRPERM SET NAME = 'Gestion' WHERE PERMID = 1");
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Chefs' WHERE GROUPID = 1");
  RunAsMoreau([this](frmUserGroupPerm& window) {
    ExpectNotWarned(window, kUsersTree, Keys::GroupOfUser(2, 1),
                    window.Users.cmdMemberOf[kRemoveButton], kLeaveGroup);
  });
}

}  // namespace
}  // namespace browser
