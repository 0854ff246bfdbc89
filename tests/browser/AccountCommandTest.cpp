#include <limits>

#include "app/StringIds.h"
#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "data/Text.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmNewGroup.h"
#include "dialogs/frmNewUser.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using controls::TreeView;
using test_support::Keys;

std::wstring U(const char* utf8) {
  return data::FromUtf8(utf8);
}

class AccountCommands : public CommandTest {
 protected:
  void Toggle(controls::ListBox& list, std::wstring_view item) {
    user.Toggle(list, ItemOf(list, item));
  }
};

TEST_F(AccountCommands, EditingWithoutAUserOnlyWarns) {
  Run([this](frmUserGroupPerm& window) {
    const Strings before = Look(window);
    ExpectWarning(L"Sélectionnez l'utilisateur à modifier puis cliquez sur le bouton Editer.",
                  controls::kExclamation);
    window.Users.cmdUser_Click(kEditButton);
    ExpectWarning(L"Sélectionnez l'utilisateur à supprimer puis cliquez sur le bouton Editer.",
                  controls::kExclamation);
    window.Users.cmdUser_Click(kDeleteButton);
    EXPECT_EQ(Look(window), before);
  });
}

TEST_F(AccountCommands, EditingWithoutAGroupWarnsWithoutAnIconAndDeletingWithOne) {
  Run([this](frmUserGroupPerm& window) {
    user.ChooseTab(window.TabStrip1, kGroupsTree);
    const Strings before = Look(window);
    ExpectWarning(L"Sélectionnez le groupe à modifier puis cliquez sur le bouton Supprimer.",
                  controls::kOkOnly);
    window.Groups.cmdGroup_Click(kEditButton);
    ExpectWarning(L"Sélectionnez le groupe à supprimer puis cliquez sur le bouton Supprimer.",
                  controls::kExclamation);
    window.Groups.cmdGroup_Click(kDeleteButton);
    EXPECT_EQ(Look(window), before);
  });
}

TEST_F(AccountCommands, ANewUserIsSelectedAndStandsInBothTrees) {
  Run([this](frmUserGroupPerm& window) {
    ExpectDialog<dialogs::frmNewUser>([this](dialogs::frmNewUser& dialog) {
      EXPECT_EQ(dialog.EveryoneGroupID, 2);
      user.Type(dialog.txtUserName, L"Lambert");
      user.Type(dialog.txtFullName, L"Paul Lambert");
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
    });
    user.Click(window.Users.cmdUser[kNewButton]);
    const std::int32_t id =
        static_cast<std::int32_t>(Raw().Number("SELECT USERID FROM QRUSER WHERE NAME = 'Lambert'"));
    EXPECT_EQ(log.statements, Joined({data::SqlSelectUser(id), data::SqlSelectUserGroups(id),
                                      data::SqlSelectUserPermissionNames(id),
                                      data::SqlSelectInheritedPermissions(id)},
                                     GroupRebuild(window)));
    EXPECT_EQ(Selected(window, kUsersTree), Keys::User(id));
    EXPECT_EQ(window.exchange.UserID, id);
    EXPECT_TRUE(window.Users.cmdUser[kDeleteButton].Enabled());
    EXPECT_EQ(window.Users.accountCount, 40);
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, AnAccountThatCannotBeCountedIsReportedAndShownAllTheSame) {
  Run([this](frmUserGroupPerm& window) {
    window.Users.accountCount = std::numeric_limits<std::int16_t>::max();
    ExpectDialog<dialogs::frmNewUser>([this](dialogs::frmNewUser& dialog) {
      user.Type(dialog.txtUserName, L"Lambert");
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
      user.ExpectMsgBox({.answer = controls::kResultOk,
                         .prompt = L"cmdUser_Click Error [6]\r\n" + TextOfError(data::kOverflow)});
    });
    user.Click(window.Users.cmdUser[kNewButton]);
    NodeAt(window.Users.TreeView1, {L"Lambert"});
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, ANewGroupIsSelectedAndStandsInBothTrees) {
  Run([this](frmUserGroupPerm& window) {
    user.ChooseTab(window.TabStrip1, kGroupsTree);
    ExpectDialog<dialogs::frmNewGroup>([this](dialogs::frmNewGroup& dialog) {
      user.Type(dialog.txtGroupName, L"Logistique");
      user.Type(dialog.txtDesc, U("Quai et dépôt"));
      Toggle(dialog.List1[kPermissionsList], L"Consulter le stock");
    });
    user.Click(window.Groups.cmdGroup[kNewButton]);
    const std::int32_t id = static_cast<std::int32_t>(
        Raw().Number("SELECT GROUPID FROM QRGROUP WHERE NAME = 'Logistique'"));
    EXPECT_EQ(log.statements, Joined({data::SqlSelectGroup(id), data::SqlSelectGroupUsers(id),
                                      data::SqlSelectGroupPermissionNames(id)},
                                     UserRebuild(window)));
    EXPECT_EQ(Selected(window, kGroupsTree), Keys::Group(id));
    EXPECT_EQ(window.Groups.accountCount, 13);
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, AnEditedUserIsRenamedAndMovedInBothTrees) {
  Run([this](frmUserGroupPerm& window) {
    TreeView& users = window.Users.TreeView1;
    Select(window, kUsersTree, Keys::OwnPermissions(9));
    const controls::NodeId martin = users.Nodes().Find(Keys::User(9));
    ExpectDialog<dialogs::frmEditUser>([this](dialogs::frmEditUser& dialog) {
      EXPECT_EQ(dialog.UserID, 9);
      EXPECT_EQ(dialog.AdminGroupID, 1);
      EXPECT_EQ(dialog.EveryoneGroupID, 2);
      EXPECT_TRUE(dialog.IsRemoveAdministrator);
      user.Type(dialog.txtUserName, L"  Zola ");
      user.Type(dialog.txtFullName, U("Émile Zola"));
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
    });
    user.Click(window.Users.cmdUser[kEditButton]);
    EXPECT_EQ(log.statements,
              Joined({data::SqlSelectUserGroups(9), data::SqlSelectUserPermissionNames(9),
                      data::SqlSelectInheritedPermissions(9)},
                     GroupRebuild(window)));
    EXPECT_EQ(users.Nodes().Text(martin), U("Zola (Émile Zola)"));
    EXPECT_EQ(users.Nodes().StoredName(martin), L"Zola");
    EXPECT_TRUE(users.Nodes().Expanded(martin));
    EXPECT_EQ(Selected(window, kUsersTree), Keys::OwnPermissions(9));
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, AnEditedGroupIsRenamedInBothTrees) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::Group(12));
    ExpectDialog<dialogs::frmEditGroup>([this](dialogs::frmEditGroup& dialog) {
      EXPECT_EQ(dialog.GroupID, 12);
      user.Type(dialog.txtGroupName, L"Labo");
    });
    user.Click(window.Groups.cmdGroup[kEditButton]);
    EXPECT_EQ(log.statements,
              Joined({data::SqlSelectGroupUsers(12), data::SqlSelectGroupPermissionNames(12)},
                     UserRebuild(window)));
    EXPECT_TRUE(Has(window, kUsersTree, Keys::GroupOfUser(9, 12)));
    NodeAt(window.Users.TreeView1,
           {L"Martin (Jean Martin)", L"Membre du Groupe", L"Labo (Mesures et essais)"});
    NodeAt(window.Groups.TreeView1, {L"Labo (Mesures et essais)"});
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, AnAccountIsRenamedAlsoWhereAFolderThatWasOpenAndEmptyIsFilledAndClosed) {
  Raw().Execute("DELETE FROM QRUPRM WHERE USERID = 9");
  Raw().Execute("DELETE FROM QRGPRM WHERE GROUPID = 6");
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    window.Users.TreeView1.SetExpanded(At(window, kUsersTree, Keys::OwnPermissions(9)), true);
    ExpectDialog<dialogs::frmEditUser>([this](dialogs::frmEditUser& dialog) {
      user.Type(dialog.txtUserName, L"Zola");
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
      Toggle(dialog.List1[kPermissionsList], L"Consulter le stock");
    });
    user.Click(window.Users.cmdUser[kEditButton]);
    EXPECT_EQ(window.Users.TreeView1.Nodes().Text(At(window, kUsersTree, Keys::User(9))),
              L"Zola (Jean Martin)");
    Select(window, kGroupsTree, Keys::Group(6));
    window.Groups.TreeView1.SetExpanded(At(window, kGroupsTree, Keys::GroupPermissions(6)), true);
    ExpectDialog<dialogs::frmEditGroup>([this](dialogs::frmEditGroup& dialog) {
      user.Type(dialog.txtGroupName, L"Labo");
      Toggle(dialog.List1[kPermissionsList], L"Consulter le stock");
    });
    user.Click(window.Groups.cmdGroup[kEditButton]);
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, EditingAdminRefreshesHisFoldersButNeitherHisTextNorTheGroups) {
  Run([this](frmUserGroupPerm& window) {
    Raw().Execute("UPDATE QRUSER SET FULLNAME = 'Somebody else wrote this' WHERE USERID = 1");
    Select(window, kUsersTree, Keys::User(1));
    ExpectDialog<dialogs::frmEditUser>([this](dialogs::frmEditUser& dialog) {
      EXPECT_FALSE(dialog.IsRemoveAdministrator);
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
      Toggle(dialog.List1[kGroupsList], L"Qualité");
    });
    user.Click(window.Users.cmdUser[kEditButton]);
    EXPECT_EQ(log.statements,
              (Strings{data::SqlSelectUserGroups(1), data::SqlSelectUserPermissionNames(1),
                       data::SqlSelectInheritedPermissions(1)}));
    EXPECT_TRUE(Has(window, kUsersTree, Keys::GroupOfUser(1, 6)));
    EXPECT_FALSE(Has(window, kGroupsTree, Keys::MemberOfGroup(6, 1)));
    NodeAt(window.Users.TreeView1, {L"Admin (Administrateur principal)"});
  });
}

TEST_F(AccountCommands, CancellingADialogChangesNoNode) {
  Run([this](frmUserGroupPerm& window) {
    const Strings before = Look(window);
    const auto cancel = [this](controls::Form& form) {
      user.PressKey(form, test_support::kKeyEscape);
      log.statements.clear();
    };
    Select(window, kUsersTree, Keys::User(9));
    for (const int Index : {kEditButton, kNewButton}) {
      user.ExpectModal(cancel);
      user.Click(window.Users.cmdUser[Index]);
      EXPECT_TRUE(log.statements.empty());
    }
    Select(window, kGroupsTree, Keys::Group(6));
    for (const int Index : {kEditButton, kNewButton}) {
      user.ExpectModal(cancel);
      user.Click(window.Groups.cmdGroup[Index]);
      EXPECT_TRUE(log.statements.empty());
    }
    EXPECT_EQ(Look(window), before);
    EXPECT_EQ(window.Users.accountCount, 39);
  });
}

TEST_F(AccountCommands, AUserWhomSomebodyDeletedMeanwhileGoesFromTheTreesAndTheUserIsTold) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    user.ExpectModal([this](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmEditUser&>(form);
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
      Raw().Execute("UPDATE QRUSER SET NAME = 'Martin(9)', VFLG = 'D' WHERE USERID = 9");
      user.ExpectMsgBox({.answer = controls::kResultOk, .style = controls::kInformation});
      user.Click(dialog.cmdOK);
    });
    user.Click(window.Users.cmdUser[kEditButton]);
    EXPECT_TRUE(user.SeenBoxes().back().prompt.starts_with(L"Un autre administrateur"));
    EXPECT_FALSE(Has(window, kUsersTree, Keys::User(9)));
    EXPECT_EQ(Raw().Text("SELECT NAME FROM QRUSER WHERE USERID = 9"), "Martin(9)");
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, AGroupWhomSomebodyDeletedBeforeGoesFromTheTreesInsteadOfBeingEdited) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::Group(6));
    Raw().Execute("UPDATE QRGROUP SET NAME = 'Qualité(6)', VFLG = 'D' WHERE GROUPID = 6");
    user.ExpectMsgBox({.answer = controls::kResultOk, .style = controls::kInformation});
    user.Click(window.Groups.cmdGroup[kEditButton]);
    EXPECT_TRUE(user.SeenBoxes().back().prompt.starts_with(L"Un autre administrateur"));
    EXPECT_EQ(window.Groups.accountCount, 11);
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, ANewUserIsSelectedAlsoWhereAnotherShowsTheSameText) {
  Run([this](frmUserGroupPerm& window) {
    ExpectDialog<dialogs::frmNewUser>([this](dialogs::frmNewUser& dialog) {
      user.Type(dialog.txtUserName, L"Martin (Jean Martin)");
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
    });
    user.Click(window.Users.cmdUser[kNewButton]);
    EXPECT_EQ(
        Selected(window, kUsersTree),
        Keys::User(static_cast<std::int32_t>(Raw().Number("SELECT MAX(USERID) FROM QRUSER"))));
    ExpectInStep(window);
  });
}

}  // namespace
}  // namespace browser
