#include <gtest/gtest.h>

#include "GroupDialogs.h"
#include "data/MSQLStatement.h"

namespace dialogs {
namespace {

class ProtectedGroup : public GroupDialogs {};

TEST_F(ProtectedGroup, EveryoneShownAsToutLeMondeHasNameMembersAssignAndAllDisabled) {
  Edit(2, [this](frmEditGroup& dialog) {
    EXPECT_EQ(dialog.txtGroupName.Text(), L"Tout le monde");
    EXPECT_EQ(dialog.txtDesc.Text(), L"Tous les utilisateurs");
    EXPECT_FALSE(dialog.txtGroupName.Enabled());
    EXPECT_FALSE(dialog.List1[dialog.kMembers].Enabled());
    EXPECT_FALSE(dialog.cmdBtn[dialog.kAssign].Enabled());
    EXPECT_FALSE(dialog.cmdBtn[dialog.kAllPermissions].Enabled());
    EXPECT_TRUE(dialog.List1[dialog.kPermissions].Enabled());
    EXPECT_TRUE(dialog.cmdBtn[dialog.kRemove].Enabled());
    EXPECT_TRUE(dialog.cmdBtn[dialog.kNoPermission].Enabled());
    EXPECT_TRUE(dialog.txtDesc.HasFocus());
    EXPECT_TRUE(dialog.IsRemoveAdmin);
    EXPECT_FALSE(user.Try().Choose(dialog.List1[dialog.kMembers], 0));
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 39);
    dialog.Unload();
  });
}

TEST_F(ProtectedGroup, EveryoneIsStoredUnderItsOwnNameAndDescription) {
  Edit(2, [this](frmEditGroup& dialog) {
    user.Click(dialog.cmdBtn[dialog.kNoPermission]);
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(RowOf(2), (std::vector<std::string>{"Everyone", "All users"}));
  EXPECT_EQ(MembersOf(2).size(), 39U);
  EXPECT_EQ(PermissionsOf(2), Ids{});
  EXPECT_EQ(exchange.GroupName, L"Tout le monde (Tous les utilisateurs)");
  EXPECT_EQ(exchange.StoredName, L"Everyone");
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(ProtectedGroup, AdministratorsHasNamePermissionsRemoveAndNoneDisabledAndGuardsAdmin) {
  Edit(1, [](frmEditGroup& dialog) {
    EXPECT_EQ(dialog.txtGroupName.Text(), L"Administrateurs");
    EXPECT_FALSE(dialog.txtGroupName.Enabled());
    EXPECT_TRUE(dialog.List1[dialog.kMembers].Enabled());
    EXPECT_TRUE(dialog.cmdBtn[dialog.kAssign].Enabled());
    EXPECT_TRUE(dialog.cmdBtn[dialog.kAllPermissions].Enabled());
    EXPECT_FALSE(dialog.List1[dialog.kPermissions].Enabled());
    EXPECT_FALSE(dialog.cmdBtn[dialog.kRemove].Enabled());
    EXPECT_FALSE(dialog.cmdBtn[dialog.kNoPermission].Enabled());
    EXPECT_FALSE(dialog.IsRemoveAdmin);
    dialog.Unload();
  });
}

TEST_F(ProtectedGroup, RemoveStaysDisabledForAdministratorsAfterAnyOtherButton) {
  Edit(1, [this](frmEditGroup& dialog) {
    user.Click(dialog.cmdBtn[dialog.kAllPermissions]);
    EXPECT_FALSE(dialog.cmdBtn[dialog.kRemove].Enabled());
    ExpectChooser([this](frmAddUserInGroup& chooser) { user.Click(chooser.cmdOK); });
    user.Click(dialog.cmdBtn[dialog.kAssign]);
    EXPECT_FALSE(dialog.cmdBtn[dialog.kRemove].Enabled());
    ExpectDiscardQuestion(controls::kResultYes);
    user.Click(dialog.cmdCancel);
  });
}

TEST_F(ProtectedGroup, AdminCannotBeMovedOutOfAdministratorsThroughTheChooserEither) {
  Edit(1, [this](frmEditGroup& dialog) {
    ExpectChooser([this](frmAddUserInGroup& chooser) {
      EXPECT_FALSE(chooser.IsRemoveAdmin);
      EXPECT_EQ(chooser.adminUserId, 1);
      ExpectInformation(L"Impossible de supprimer l'utilisateur de 'Admin' le groupe.");
      user.Click(chooser.cmdBtn[chooser.kRemoveAll]);
      EXPECT_EQ(IdsOf(chooser.List1[chooser.kMembers]), Ids{1});
      user.Click(chooser.cmdOK);
    });
    user.Click(dialog.cmdBtn[dialog.kAssign]);
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), Ids{1});
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(MembersOf(1), Ids{1});
  EXPECT_EQ(RowOf(1),
            (std::vector<std::string>{"Administrators", "Full control of the application"}));
  EXPECT_EQ(PermissionsOf(1), (Ids{1, 29, 30}));
}

TEST_F(ProtectedGroup, WithoutDisplayFormsTheNamesThemselvesAreRecognised) {
  Raw().Execute("DELETE FROM QRDISPLAY");
  Start();
  Edit(2, [](frmEditGroup& dialog) {
    EXPECT_EQ(dialog.txtGroupName.Text(), L"Everyone");
    EXPECT_FALSE(dialog.txtGroupName.Enabled());
    EXPECT_FALSE(dialog.List1[dialog.kMembers].Enabled());
    dialog.Unload();
  });
  Edit(1, [this](frmEditGroup& dialog) {
    EXPECT_EQ(dialog.txtGroupName.Text(), L"Administrators");
    EXPECT_FALSE(dialog.List1[dialog.kPermissions].Enabled());
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(RowOf(1)[0], "Administrators");
}

TEST_F(ProtectedGroup, TheStoredNameProtectsWhereTheDisplayedOneIsNotMappedBack) {
  Raw().Execute("DELETE FROM QRDISPLAY WHERE CODE = 114");
  Start();
  Edit(1, [this](frmEditGroup& dialog) {
    EXPECT_EQ(dialog.txtGroupName.Text(), L"Administrateurs");
    EXPECT_FALSE(dialog.txtGroupName.Enabled());
    EXPECT_FALSE(dialog.List1[dialog.kPermissions].Enabled());
    EXPECT_FALSE(dialog.cmdBtn[dialog.kRemove].Enabled());
    EXPECT_FALSE(dialog.IsRemoveAdmin);
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(RowOf(1)[0], "Administrators");
  Edit(2, [](frmEditGroup& dialog) {
    EXPECT_EQ(dialog.txtGroupName.Text(), L"Tout le monde");
    EXPECT_FALSE(dialog.txtGroupName.Enabled());
    EXPECT_FALSE(dialog.List1[dialog.kMembers].Enabled());
    dialog.Unload();
  });
}

// Remove is off for Administrators; the rule must hold wherever the button is on.
TEST_F(ProtectedGroup, AdminIsNotRemovedWhereHeMayNotBeTakenOut) {
  Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (1, 12)");
  Edit(12, [this](frmEditGroup& dialog) {
    dialog.IsRemoveAdmin = false;
    controls::ListBox& members = dialog.List1[dialog.kMembers];
    Choose(members, L"Admin");
    ExpectInformation(L"Impossible de supprimer l'utilisateur de 'Admin' le groupe.");
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(members.ListCount(), 4);
    Choose(members, L"Martin");
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(members.ListCount(), 3);
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(MembersOf(12), (Ids{1, 34, 38}));
}

TEST_F(ProtectedGroup, AnotherCaseIsAnotherGroup) {
  Raw().Execute("UPDATE QRGROUP SET NAME = 'administrators' WHERE GROUPID = 12");
  Edit(12, [](frmEditGroup& dialog) {
    EXPECT_TRUE(dialog.txtGroupName.Enabled());
    EXPECT_TRUE(dialog.List1[dialog.kPermissions].Enabled());
    EXPECT_TRUE(dialog.IsRemoveAdmin);
    dialog.Unload();
  });
}

}  // namespace
}  // namespace dialogs
