#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmNewGroup.h"
#include "dialogs/frmNewUser.h"
#include "tests/support/window/MainWindow.h"

namespace browser {
namespace {

using controls::TreeNodes;
using controls::TreeView;
using Strings = std::vector<std::wstring>;

std::wstring U(const char* utf8) {
  return data::FromUtf8(utf8);
}

class AccountCommands : public testing_support::MainWindow {
 protected:
  void Select(frmUserGroupPerm& window, int tree, const wchar_t* key) {
    user.ChooseTab(window.TabStrip1, tree);
    const int node = window.TreeView1[tree].Nodes().Find(key);
    ASSERT_NE(node, controls::kNoNode);
    user.Select(window.TreeView1[tree], node);
  }
  static std::wstring Selected(frmUserGroupPerm& window, int tree) {
    const TreeView& view = window.TreeView1[tree];
    return view.Nodes().Key(view.SelectedNode());
  }
  static bool Has(frmUserGroupPerm& window, int tree, const wchar_t* key) {
    return window.TreeView1[tree].Nodes().Find(key) != controls::kNoNode;
  }

  // Every node of both trees with all that is seen of it.
  static Strings Look(frmUserGroupPerm& window) {
    Strings all;
    for (const TreeView& tree : window.TreeView1) {
      const TreeNodes& nodes = tree.Nodes();
      for (int node = nodes.NextIndex(0); node != controls::kNoNode; node = nodes.NextIndex(node)) {
        all.push_back(nodes.Key(node) + L"=" + nodes.FullPath(node) +
                      std::to_wstring(nodes.Image(node)) + nodes.StoredName(node));
      }
    }
    std::sort(all.begin(), all.end());
    return all;
  }
  // What a refresh shows is what the trees show already.
  void ExpectInStep(frmUserGroupPerm& window) {
    const Strings before = Look(window);
    window.RefreshTree();
    EXPECT_EQ(before, Look(window));
  }

  static Strings GroupRebuild(frmUserGroupPerm& window) {
    Strings statements{L"BeginRead"};
    const TreeNodes& nodes = window.TreeView1[1].Nodes();
    for (int group = nodes.FirstChild(1); group != controls::kNoNode; group = nodes.Next(group)) {
      statements.push_back(data::SqlSelectGroupUsers(nodes.Id(group)));
    }
    statements.push_back(L"EndRead");
    return statements;
  }
  static Strings UserRebuild(frmUserGroupPerm& window) {
    Strings statements{L"BeginRead"};
    const TreeNodes& nodes = window.TreeView1[0].Nodes();
    for (int account = nodes.FirstChild(1); account != controls::kNoNode;
         account = nodes.Next(account)) {
      statements.push_back(data::SqlSelectUserGroups(nodes.Id(account)));
      statements.push_back(data::SqlSelectInheritedPermissions(nodes.Id(account)));
    }
    statements.push_back(L"EndRead");
    return statements;
  }
  static Strings Joined(Strings first, const Strings& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
  }

  void ExpectQuestion(int answer, const wchar_t* prompt) {
    user.ExpectMsgBox({.answer = answer,
                       .prompt = prompt,
                       .style = controls::kYesNo | controls::kCritical | controls::kDefaultButton2,
                       .title = L"Admin Utilisateurs"});
  }
  void ExpectWarning(const wchar_t* prompt, int style) {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = prompt,
                       .style = style,
                       .title = L"Admin Utilisateurs"});
  }

  // Fills the dialog in and presses OK; from then on statements are noted afresh.
  template <typename Dialog, typename Fill>
  void ExpectDialog(Fill fill) {
    user.ExpectModal([this, fill](controls::Form& form) {
      auto& dialog = dynamic_cast<Dialog&>(form);
      fill(dialog);
      user.Click(dialog.cmdOK);
      log.statements.clear();
    });
  }
};

TEST_F(AccountCommands, EditingWithoutAUserOnlyWarns) {
  Run([this](frmUserGroupPerm& window) {
    const Strings before = Look(window);
    ExpectWarning(L"Sélectionnez l'utilisateur à modifier puis cliquez sur le bouton Editer.",
                  controls::kExclamation);
    window.cmdUser_Click(0);
    ExpectWarning(L"Sélectionnez l'utilisateur à supprimer puis cliquez sur le bouton Editer.",
                  controls::kExclamation);
    window.cmdUser_Click(1);
    EXPECT_EQ(Look(window), before);
  });
}

TEST_F(AccountCommands, EditingWithoutAGroupWarnsWithoutAnIconAndDeletingWithOne) {
  Run([this](frmUserGroupPerm& window) {
    user.ChooseTab(window.TabStrip1, 1);
    ExpectWarning(L"Sélectionnez le groupe à modifier puis cliquez sur le bouton Supprimer.",
                  controls::kOkOnly);
    window.cmdGroup_Click(0);
    ExpectWarning(L"Sélectionnez le groupe à supprimer puis cliquez sur le bouton Supprimer.",
                  controls::kExclamation);
    window.cmdGroup_Click(1);
  });
}

TEST_F(AccountCommands, ADeletedUserGoesFromBothTreesWithOneStatement) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, 0, L"\\TUS \\U9");
    log.statements.clear();
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
    user.Click(window.cmdUser[1]);
    EXPECT_EQ(log.statements,
              Joined({L"UPDATE QRUSER SET QRUSER.NAME = 'Martin(9)', QRUSER.VFLG = 'D' Where "
                      L"QRUSER.USERID = 9"},
                     GroupRebuild(window)));
    EXPECT_FALSE(Has(window, 0, L"\\TUS \\U9"));
    EXPECT_FALSE(Has(window, 1, L"\\TUG \\G7 \\U9"));
    EXPECT_EQ(window.userCount, 38);
    EXPECT_EQ(Raw().Rows("SELECT NAME, VFLG FROM QRUSER WHERE USERID = 9"),
              (std::vector<std::vector<std::string>>{{"Martin(9)", "D"}}));
    EXPECT_EQ(Raw().Number("SELECT COUNT(*) FROM QRUSGP WHERE USERID = 9 AND GROUPID <> 2"), 2);
    EXPECT_EQ(Selected(window, 0), L"\\TUS \\U10");
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, ADeletedGroupGoesFromBothTreesWithOneStatement) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, 1, L"\\TGR \\G6");
    log.statements.clear();
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer ce groupe ?");
    user.Click(window.cmdGroup[1]);
    EXPECT_EQ(log.statements,
              Joined({L"UPDATE QRGROUP SET QRGROUP.NAME = 'Qualité(6)', QRGROUP.VFLG = 'D' Where "
                      L"QRGROUP.GROUPID = 6"},
                     UserRebuild(window)));
    EXPECT_FALSE(Has(window, 1, L"\\TGR \\G6"));
    EXPECT_FALSE(Has(window, 0, L"\\TGU \\U15 \\G6"));
    EXPECT_EQ(window.groupCount, 11);
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, DeletingFromAnyNodeOfAnAccountDeletesTheAccount) {
  for (const wchar_t* key : {L"\\TMO \\U9 \\G", L"\\TGU \\U9 \\G12", L"\\TUP \\U9 \\P",
                             L"\\TPU \\U9 \\P14", L"\\TAP \\U9 \\P", L"\\TPA \\U9 \\P14"}) {
    UseSample();
    Run([this, key](frmUserGroupPerm& window) {
      Select(window, 0, key);
      ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
      user.Click(window.cmdUser[1]);
      EXPECT_FALSE(Has(window, 0, L"\\TUS \\U9"));
      EXPECT_EQ(window.TreeView1[0].Nodes().Children(1), 38);
      ExpectInStep(window);
    });
  }
}

TEST_F(AccountCommands, ALeafNamedLikeAFolderDeletesItsAccountAndNothingElse) {
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Droits Utilisateur', DESCR = NULL WHERE GROUPID = 12");
  Run([this](frmUserGroupPerm& window) {
    Select(window, 0, L"\\TGU \\U9 \\G12");
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
    user.Click(window.cmdUser[1]);
    EXPECT_FALSE(Has(window, 0, L"\\TUS \\U9"));
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, AnsweringNoLeavesDatabaseAndTreesAndSetsTheButtonsAgain) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, 0, L"\\TUS \\U9");
    const Strings before = Look(window);
    log.statements.clear();
    window.cmdUser[0].SetEnabled(false);
    ExpectQuestion(controls::kResultNo, L"Souhaitez-vous supprimer cet utilisateur ?");
    user.Click(window.cmdUser[1]);
    EXPECT_TRUE(log.statements.empty());
    EXPECT_EQ(Look(window), before);
    EXPECT_TRUE(window.cmdUser[0].Enabled());
  });
}

TEST_F(AccountCommands, ADeleteThatTheDatabaseRefusesLeavesTheTreesAsTheyWere) {
  Raw().Execute("UPDATE QRUSER SET NAME = 'd''Artagnan' WHERE USERID = 9");
  Run([this](frmUserGroupPerm& window) {
    Select(window, 0, L"\\TUS \\U9");
    const Strings before = Look(window);
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
    user.ExpectMsgBox(controls::kResultOk);
    user.Click(window.cmdUser[1]);
    EXPECT_TRUE(user.SeenBoxes().back().prompt.starts_with(L"DeleteRecord Error ["));
    EXPECT_EQ(Look(window), before);
    EXPECT_EQ(window.userCount, 39);
    EXPECT_EQ(Raw().Text("SELECT NAME FROM QRUSER WHERE USERID = 9"), "d'Artagnan");
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, ANameMadeToReachAnotherRowIsRefusedAndChangesNothing) {
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
      Select(window, 0, L"\\TUS \\U9");
      const Strings look = Look(window);
      ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
      user.ExpectMsgBox(controls::kResultOk);
      user.Click(window.cmdUser[1]);
      EXPECT_TRUE(user.SeenBoxes().back().prompt.starts_with(L"DeleteRecord Error [")) << name;
      EXPECT_EQ(Look(window), look);
    });
    EXPECT_EQ(raw.Rows("SELECT * FROM QRUSER ORDER BY 1"), before) << name;
    EXPECT_EQ(raw.Rows("SELECT * FROM QRUSGP ORDER BY 1, 2"), links) << name;
  }
}

TEST_F(AccountCommands, ADeleteThatMeetsNoRowTakesTheNodeAwayAndSaysWhy) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, 0, L"\\TUS \\U40");
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 40");
    Raw().Execute("DELETE FROM QRUPRM WHERE USERID = 40");
    Raw().Execute("DELETE FROM QRUSER WHERE USERID = 40");
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
    ExpectWarning(
        L"Un autre administrateur a modifié ces données entre-temps.\r\n"
        L"L'affichage a été mis à jour ; vérifiez-le avant de poursuivre.",
        controls::kInformation);
    user.Click(window.cmdUser[1]);
    ExpectInStep(window);
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
    user.Click(window.cmdUser[2]);
    const std::int32_t id =
        static_cast<std::int32_t>(Raw().Number("SELECT USERID FROM QRUSER WHERE NAME = 'Lambert'"));
    EXPECT_EQ(log.statements, Joined({data::SqlSelectUser(id), data::SqlSelectUserGroups(id),
                                      data::SqlSelectUserPermissionNames(id),
                                      data::SqlSelectInheritedPermissions(id)},
                                     GroupRebuild(window)));
    EXPECT_EQ(Selected(window, 0), L"\\TUS \\U" + std::to_wstring(id));
    EXPECT_EQ(window.exchange.UserID, id);
    EXPECT_TRUE(window.cmdUser[1].Enabled());
    EXPECT_EQ(window.userCount, 40);
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, AnAccountThatCannotBeCountedIsReportedAndShownAllTheSame) {
  Run([this](frmUserGroupPerm& window) {
    window.userCount = std::numeric_limits<std::int16_t>::max();
    ExpectDialog<dialogs::frmNewUser>([this](dialogs::frmNewUser& dialog) {
      user.Type(dialog.txtUserName, L"Lambert");
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
      user.ExpectMsgBox({.answer = controls::kResultOk,
                         .prompt = L"cmdUser_Click Error [6]\r\n" + desktop.LoadResString(10006)});
    });
    user.Click(window.cmdUser[2]);
    NodeAt(window.TreeView1[0], {L"Lambert"});
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, ANewGroupIsSelectedAndStandsInBothTrees) {
  Run([this](frmUserGroupPerm& window) {
    user.ChooseTab(window.TabStrip1, 1);
    ExpectDialog<dialogs::frmNewGroup>([this](dialogs::frmNewGroup& dialog) {
      user.Type(dialog.txtGroupName, L"Logistique");
      user.Type(dialog.txtDesc, U("Quai et dépôt"));
      user.Toggle(dialog.List1[2], 0);
    });
    user.Click(window.cmdGroup[2]);
    const std::int32_t id = static_cast<std::int32_t>(
        Raw().Number("SELECT GROUPID FROM QRGROUP WHERE NAME = 'Logistique'"));
    EXPECT_EQ(log.statements, Joined({data::SqlSelectGroup(id), data::SqlSelectGroupUsers(id),
                                      data::SqlSelectGroupPermissionNames(id)},
                                     UserRebuild(window)));
    EXPECT_EQ(Selected(window, 1), L"\\TGR \\G" + std::to_wstring(id));
    EXPECT_EQ(window.groupCount, 13);
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, AnEditedUserIsRenamedAndMovedInBothTrees) {
  Run([this](frmUserGroupPerm& window) {
    TreeView& users = window.TreeView1[0];
    Select(window, 0, L"\\TUP \\U9 \\P");
    const int martin = users.Nodes().Find(L"\\TUS \\U9");
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
    user.Click(window.cmdUser[0]);
    EXPECT_EQ(log.statements,
              Joined({data::SqlSelectUserGroups(9), data::SqlSelectUserPermissionNames(9),
                      data::SqlSelectInheritedPermissions(9)},
                     GroupRebuild(window)));
    EXPECT_EQ(users.Nodes().Text(martin), U("Zola (Émile Zola)"));
    EXPECT_EQ(users.Nodes().StoredName(martin), L"Zola");
    EXPECT_TRUE(users.Nodes().Expanded(martin));
    EXPECT_EQ(Selected(window, 0), L"\\TUP \\U9 \\P");
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, AnEditedGroupIsRenamedInBothTrees) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, 1, L"\\TGR \\G12");
    ExpectDialog<dialogs::frmEditGroup>([this](dialogs::frmEditGroup& dialog) {
      EXPECT_EQ(dialog.GroupID, 12);
      user.Type(dialog.txtGroupName, L"Labo");
    });
    user.Click(window.cmdGroup[0]);
    EXPECT_EQ(log.statements,
              Joined({data::SqlSelectGroupUsers(12), data::SqlSelectGroupPermissionNames(12)},
                     UserRebuild(window)));
    EXPECT_TRUE(Has(window, 0, L"\\TGU \\U9 \\G12"));
    NodeAt(window.TreeView1[0],
           {L"Martin (Jean Martin)", L"Membre du Groupe", L"Labo (Mesures et essais)"});
    NodeAt(window.TreeView1[1], {L"Labo (Mesures et essais)"});
    ExpectInStep(window);
  });
}

TEST_F(AccountCommands, ASoftDeletePassesTheNameThatAnEditHasStored) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, 0, L"\\TUS \\U9");
    ExpectDialog<dialogs::frmEditUser>([this](dialogs::frmEditUser& dialog) {
      user.Type(dialog.txtUserName, L"Zola");
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
    });
    user.Click(window.cmdUser[0]);
    ExpectQuestion(controls::kResultYes, L"Souhaitez-vous supprimer cet utilisateur ?");
    user.Click(window.cmdUser[1]);
    EXPECT_EQ(Raw().Text("SELECT NAME FROM QRUSER WHERE USERID = 9"), "Zola(9)");
  });
}

TEST_F(AccountCommands, EditingAdminRefreshesHisFoldersButNeitherHisTextNorTheGroups) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, 0, L"\\TUS \\U1");
    ExpectDialog<dialogs::frmEditUser>([this](dialogs::frmEditUser& dialog) {
      EXPECT_FALSE(dialog.IsRemoveAdministrator);
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
      for (int i = 0; i < dialog.List1[1].ListCount(); ++i) {
        if (dialog.List1[1].ItemData(i) == 6) user.Toggle(dialog.List1[1], i);
      }
    });
    user.Click(window.cmdUser[0]);
    EXPECT_EQ(log.statements,
              (Strings{data::SqlSelectUserGroups(1), data::SqlSelectUserPermissionNames(1),
                       data::SqlSelectInheritedPermissions(1)}));
    EXPECT_TRUE(Has(window, 0, L"\\TGU \\U1 \\G6"));
    EXPECT_FALSE(Has(window, 1, L"\\TUG \\G6 \\U1"));
    NodeAt(window.TreeView1[0], {L"Admin (Administrateur principal)"});
  });
}

TEST_F(AccountCommands, CancellingADialogChangesNoNode) {
  Run([this](frmUserGroupPerm& window) {
    const Strings before = Look(window);
    const auto cancel = [this](controls::Form& form) {
      user.PressKey(form, testing_support::kKeyEscape);
      log.statements.clear();
    };
    Select(window, 0, L"\\TUS \\U9");
    for (const int Index : {0, 2}) {
      user.ExpectModal(cancel);
      user.Click(window.cmdUser[Index]);
      EXPECT_TRUE(log.statements.empty());
    }
    Select(window, 1, L"\\TGR \\G6");
    for (const int Index : {0, 2}) {
      user.ExpectModal(cancel);
      user.Click(window.cmdGroup[Index]);
      EXPECT_TRUE(log.statements.empty());
    }
    EXPECT_EQ(Look(window), before);
    EXPECT_EQ(window.userCount, 39);
  });
}

TEST_F(AccountCommands, AUserWhomSomebodyDeletedMeanwhileGoesFromTheTreesAndTheUserIsTold) {
  Run([this](frmUserGroupPerm& window) {
    Select(window, 0, L"\\TUS \\U9");
    user.ExpectModal([this](controls::Form& form) {
      auto& dialog = dynamic_cast<dialogs::frmEditUser&>(form);
      user.Type(dialog.txtPassword, L"secret1");
      user.Type(dialog.txtVerify, L"secret1");
      Raw().Execute("UPDATE QRUSER SET NAME = 'Martin(9)', VFLG = 'D' WHERE USERID = 9");
      user.ExpectMsgBox({.answer = controls::kResultOk, .style = controls::kInformation});
      user.Click(dialog.cmdOK);
    });
    user.Click(window.cmdUser[0]);
    EXPECT_TRUE(user.SeenBoxes().back().prompt.starts_with(L"Un autre administrateur"));
    EXPECT_FALSE(Has(window, 0, L"\\TUS \\U9"));
    EXPECT_EQ(Raw().Text("SELECT NAME FROM QRUSER WHERE USERID = 9"), "Martin(9)");
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
    user.Click(window.cmdUser[2]);
    EXPECT_EQ(Selected(window, 0),
              L"\\TUS \\U" + std::to_wstring(Raw().Number("SELECT MAX(USERID) FROM QRUSER")));
    ExpectInStep(window);
  });
}

}  // namespace
}  // namespace browser
