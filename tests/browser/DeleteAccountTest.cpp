#include <chrono>
#include <thread>

#include "data/MSQLStatement.h"
#include "dialogs/frmEditUser.h"
#include "tests/browser/CommandTest.h"
#include "tests/support/keys/Keys.h"

namespace browser {
namespace {

using test_support::Keys;
class DeleteCommands : public CommandTest {
 protected:
  // Deletes the account that the node belongs to, user 9 or group 6, and nothing else.
  void ExpectDeleted(int tree, const std::wstring& key) {
    Run([this, tree, key](frmUserGroupPerm& window) {
      Select(window, tree, key);
      ExpectQuestion(controls::kResultYes, tree == kUsersTree
                                               ? L"Souhaitez-vous supprimer cet utilisateur ?"
                                               : L"Souhaitez-vous supprimer ce groupe ?");
      user.Click(tree == kUsersTree ? window.Users.cmdUser[kDeleteButton]
                                    : window.Groups.cmdGroup[kDeleteButton]);
      EXPECT_FALSE(Has(window, tree, tree == kUsersTree ? Keys::User(9) : Keys::Group(6))) << tree;
      EXPECT_EQ(window.Page(tree).TreeView1.Nodes().Children(controls::NodeId{1}),
                tree == kUsersTree ? 38 : 11);
      ExpectInStep(window);
    });
  }
};

TEST_F(DeleteCommands, ADeletedUserGoesFromBothTreesWithOneStatement) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    log.statements.clear();
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
    user.Click(window.Users.cmdUser[kDeleteButton]);
    EXPECT_EQ(log.statements,
              Joined({L"UPDATE QRUSER SET QRUSER.NAME = 'Martin(9)', QRUSER.VFLG = 'D' Where "
                      L"QRUSER.USERID = 9"},
                     GroupRebuild(window)));
    EXPECT_FALSE(Has(window, kUsersTree, Keys::User(9)));
    EXPECT_FALSE(Has(window, kGroupsTree, Keys::MemberOfGroup(7, 9)));
    EXPECT_EQ(window.Users.accountCount, 38);
    EXPECT_EQ(Raw().Rows("SELECT NAME, VFLG FROM QRUSER WHERE USERID = 9"),
              (std::vector<std::vector<std::string>>{{"Martin(9)", "D"}}));
    EXPECT_EQ(Raw().Number("SELECT COUNT(*) FROM QRUSGP WHERE USERID = 9 AND GROUPID <> 2"), 2);
    EXPECT_EQ(Selected(window, kUsersTree), Keys::User(10));
    ExpectInStep(window);
  });
}

TEST_F(DeleteCommands, ADeletedGroupGoesFromBothTreesWithOneStatement) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::Group(6));
    log.statements.clear();
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer ce groupe ?");
    user.Click(window.Groups.cmdGroup[kDeleteButton]);
    EXPECT_EQ(log.statements,
              Joined({L"UPDATE QRGROUP SET QRGROUP.NAME = 'Qualité(6)', QRGROUP.VFLG = 'D' Where "
                      L"QRGROUP.GROUPID = 6"},
                     UserRebuild(window)));
    EXPECT_FALSE(Has(window, kGroupsTree, Keys::Group(6)));
    EXPECT_FALSE(Has(window, kUsersTree, Keys::GroupOfUser(15, 6)));
    EXPECT_EQ(window.Groups.accountCount, 11);
    ExpectInStep(window);
  });
}

TEST_F(DeleteCommands, DeletingFromAnyNodeOfAUserDeletesTheUser) {
  for (const std::wstring& key :
       {Keys::GroupsOfUser(9), Keys::GroupOfUser(9, 12), Keys::OwnPermissions(9),
        Keys::OwnPermission(9, 14), Keys::AllPermissions(9), Keys::AnyPermission(9, 14)}) {
    UseSample();
    ExpectDeleted(kUsersTree, key);
  }
}

TEST_F(DeleteCommands, DeletingFromAnyNodeOfAGroupDeletesTheGroup) {
  for (const std::wstring& key : {Keys::MembersOfGroup(6), Keys::MemberOfGroup(6, 34),
                                  Keys::GroupPermissions(6), Keys::GroupPermission(6, 21)}) {
    UseSample();
    ExpectDeleted(kGroupsTree, key);
  }
}

TEST_F(DeleteCommands, AGroupNamedLikeAFolderDeletesItsUserAndNothingElse) {
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Droits Utilisateur', DESCR = NULL WHERE GROUPID = 12");
  ExpectDeleted(kUsersTree, Keys::GroupOfUser(9, 12));
}

TEST_F(DeleteCommands, AMemberNamedLikeAFolderDeletesItsGroupAndNothingElse) {
  for (const char* name : {"Membres", "Droits du Groupe"}) {
    UseSample();
    Raw().Execute(std::string("UPDATE QRUSER SET FULLNAME = NULL, NAME = '") + name +
                  "' WHERE USERID = 34");
    ExpectDeleted(kGroupsTree, Keys::MemberOfGroup(6, 34));
  }
}

TEST_F(DeleteCommands, AnsweringNoLeavesDatabaseAndTreesAndSetsTheButtonsAgain) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    const Strings before = Look(window);
    log.statements.clear();
    window.Users.cmdUser[kEditButton].SetEnabled(false);
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer cet utilisateur ?");
    user.Click(window.Users.cmdUser[kDeleteButton]);
    EXPECT_TRUE(log.statements.empty());
    EXPECT_EQ(Look(window), before);
    EXPECT_TRUE(window.Users.cmdUser[kEditButton].Enabled());
  });
}

TEST_F(DeleteCommands, AnsweringNoForAGroupSetsTheButtonsAgainToo) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::Group(6));
    const Strings before = Look(window);
    log.statements.clear();
    window.Groups.cmdGroup[kEditButton].SetEnabled(false);
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer ce groupe ?");
    user.Click(window.Groups.cmdGroup[kDeleteButton]);
    EXPECT_TRUE(log.statements.empty());
    EXPECT_EQ(Look(window), before);
    EXPECT_TRUE(window.Groups.cmdGroup[kEditButton].Enabled());
  });
}

TEST_F(DeleteCommands, ADeleteThatTheDatabaseRefusesLeavesTheTreesAsTheyWere) {
  Raw().Execute("UPDATE QRUSER SET NAME = 'd''Artagnan' WHERE USERID = 9");
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    const Strings before = Look(window);
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
    user.ExpectMsgBox(controls::kResultOk);
    user.Click(window.Users.cmdUser[kDeleteButton]);
    EXPECT_TRUE(user.SeenBoxes().back().prompt.starts_with(L"DeleteRecord Error ["));
    EXPECT_EQ(Look(window), before);
    EXPECT_EQ(window.Users.accountCount, 39);
    EXPECT_EQ(Raw().Text("SELECT NAME FROM QRUSER WHERE USERID = 9"), "d'Artagnan");
    ExpectInStep(window);
  });
}

TEST_F(DeleteCommands, ANameMadeToReachAnotherRowIsRefusedAndChangesNothing) {
  for (const char* name :
       {"x', VFLG = 'D' WHERE USERID = 10 --", "x' WHERE USERID = 10; DELETE FROM QRUSGP; --",
        "x', QRUSER.VFLG = 'D' Where QRUSER.USERID = 10 or '' = '", "x' /*", "x''"}) {
    UseSample();
    auto raw = Raw();
    std::string quoted(name);
    for (std::size_t at = 0; (at = quoted.find('\'', at)) != std::string::npos; at += 2) {
      quoted.insert(at, 1, '\'');
    }
    raw.Execute("UPDATE QRUSER SET NAME = '" + quoted + "' WHERE USERID = 9");
    const auto before = raw.Rows("SELECT * FROM QRUSER ORDER BY 1");
    const auto links = raw.Rows("SELECT * FROM QRUSGP ORDER BY 1, 2");
    Run([&](frmUserGroupPerm& window) {
      Select(window, kUsersTree, Keys::User(9));
      const Strings look = Look(window);
      ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
      user.ExpectMsgBox(controls::kResultOk);
      user.Click(window.Users.cmdUser[kDeleteButton]);
      EXPECT_TRUE(user.SeenBoxes().back().prompt.starts_with(L"DeleteRecord Error [")) << name;
      EXPECT_EQ(Look(window), look);
    });
    EXPECT_EQ(raw.Rows("SELECT * FROM QRUSER ORDER BY 1"), before) << name;
    EXPECT_EQ(raw.Rows("SELECT * FROM QRUSGP ORDER BY 1, 2"), links) << name;
  }
}

TEST_F(DeleteCommands, ADeleteThatMeetsNoRowTakesTheNodeAwayAndSaysWhy) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(40));
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 40");
    Raw().Execute("DELETE FROM QRUPRM WHERE USERID = 40");
    Raw().Execute("DELETE FROM QRUSER WHERE USERID = 40");
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
    ExpectWarning(
        L"Un autre administrateur a modifié ces données entre-temps.\r\n"
        L"L'affichage a été mis à jour ; vérifiez-le avant de poursuivre.",
        controls::kInformation);
    user.Click(window.Users.cmdUser[kDeleteButton]);
    ExpectInStep(window);
  });
}

TEST_F(DeleteCommands, ASoftDeletePassesTheNameThatAnEditHasStored) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kUsersTree, Keys::User(9));
    ExpectDialog<dialogs::frmEditUser>([this](dialogs::frmEditUser& dialog) {
      user.Type(dialog.txtUserName, L"Zola");
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
    });
    user.Click(window.Users.cmdUser[kEditButton]);
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
    user.Click(window.Users.cmdUser[kDeleteButton]);
    EXPECT_EQ(Raw().Text("SELECT NAME FROM QRUSER WHERE USERID = 9"), "Zola(9)");
  });
}

TEST_F(DeleteCommands, TheWindowSaysHowFarItIsWhileAllUsersAreBroughtUpToDateSlowly) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, kGroupsTree, Keys::Group(6));
    bool told = false;
    log.FailAt = [&](const std::wstring& call) {
      // A slow database, so that there is something to tell.
      if (call == data::SqlSelectUserGroups(1)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
      }
      const std::wstring status = window.lblStatus.Caption();
      told |=
          status.starts_with(L"Mise à jour des utilisateurs : ") && status.ends_with(L" sur 39");
      return 0L;
    };
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer ce groupe ?");
    user.Click(window.Groups.cmdGroup[kDeleteButton]);
    log.FailAt = nullptr;
    EXPECT_TRUE(told);
    EXPECT_EQ(window.lblStatus.Caption(), L"Groupe Qualité supprimé");
  });
}

}  // namespace
}  // namespace browser
