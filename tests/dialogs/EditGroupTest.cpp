#include <gtest/gtest.h>

#include "GroupDialogs.h"
#include "data/MSQLStatement.h"

namespace dialogs {
namespace {

using data::SqlSelectGroup;

class EditGroup : public GroupDialogs {};

Strings LoadStatements(std::int32_t groupId) {
  Strings statements = {SqlSelectGroup(groupId), data::SqlSelectGroupUsers(groupId),
                        data::SqlSelectAllPermissions()};
  for (const auto& permission : Sample::PermissionsByName()) {
    statements.push_back(data::SqlSelectGroupPermission(groupId, permission.id));
  }
  return statements;
}

Strings SaveCalls(std::int32_t groupId, const Strings& mapped, int members, int permissions) {
  Strings calls = {L"GetDisplayName 104 Administrators", L"GetDisplayName 104 Everyone",
                   L"MoveFirst " + SqlSelectGroup(groupId), L"Edit " + SqlSelectGroup(groupId)};
  calls.insert(calls.end(), mapped.begin(), mapped.end());
  calls.push_back(L"Update " + SqlSelectGroup(groupId));
  calls.push_back(data::SqlDeleteGroupMemberships(groupId));
  calls.push_back(data::SqlSelectGroupMemberships(groupId));
  AppendNewRows(calls, data::SqlSelectGroupMemberships(groupId), members);
  calls.push_back(data::SqlDeleteGroupPermissions(groupId));
  calls.push_back(data::SqlSelectGroupPermRows(groupId));
  AppendNewRows(calls, data::SqlSelectGroupPermRows(groupId), permissions);
  return calls;
}

TEST_F(EditGroup, ShowsTheGroupItsMembersAndItsPermissionsChecked) {
  Edit(12, [](frmEditGroup& dialog) {
    EXPECT_EQ(dialog.Caption(), L"Modifier le Groupe");
    EXPECT_EQ(dialog.lblGroupName.Caption(), L"Groupe :");
    EXPECT_EQ(dialog.txtGroupName.Text(), L"Laboratoire");
    EXPECT_EQ(dialog.lblDesc.Caption(), L"Description :");
    EXPECT_EQ(dialog.txtDesc.Text(), L"Mesures et essais");
    EXPECT_EQ(dialog.fraMembers.Caption(), L"Membres");
    EXPECT_EQ(TextsOf(dialog.List1[dialog.kMembers]), (Strings{L"Clément", L"Martin", L"Œuvrard"}));
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{34, 9, 38}));
    EXPECT_EQ(dialog.fraGroupPermission.Caption(), L"Droits du Groupe");
    EXPECT_EQ(dialog.List1[dialog.kPermissions].ListCount(), 30);
    EXPECT_EQ(ItemOf(dialog.List1[dialog.kPermissions], L"Saisir un relevé de contrôle"),
              ItemOf(dialog.List1[dialog.kPermissions], Sample::kReadings));
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kPermissions]), Ids{20});
    EXPECT_EQ(dialog.cmdBtn[dialog.kAssign].Caption(), L"&Affecter...");
    EXPECT_EQ(dialog.cmdBtn[dialog.kAllPermissions].Caption(), L"&Tous");
    EXPECT_EQ(dialog.cmdBtn[dialog.kRemove].Caption(), L"Supp&rimer...");
    EXPECT_EQ(dialog.cmdBtn[dialog.kNoPermission].Caption(), L"&Aucun");
    EXPECT_EQ(dialog.cmdOK.Caption(), L"OK");
    EXPECT_EQ(dialog.cmdCancel.Caption(), L"Annuler");
    EXPECT_EQ(dialog.Command1.Caption(), L"A&ide");
    EXPECT_TRUE(dialog.IsRemoveAdmin);
    ExpectNameSelected(dialog);
    dialog.Unload();
  });
}

TEST_F(EditGroup, LoadsByTheseStatementsInThisOrder) {
  Edit(12, [this](frmEditGroup& dialog) {
    EXPECT_EQ(log.statements, LoadStatements(12));
    EXPECT_EQ(log.calls, [] {
      Strings calls = LoadStatements(12);
      calls.insert(calls.begin() + 1,
                   {L"GetDisplayName 104 Laboratoire", L"GetDisplayName 105 Mesures et essais"});
      calls.push_back(L"GetDisplayName 114 Laboratoire");
      return calls;
    }());
    dialog.Unload();
  });
}

TEST_F(EditGroup, ABlankDescriptionIsNotMappedAndShownEmpty) {
  Edit(9, [this](frmEditGroup& dialog) {
    EXPECT_EQ(dialog.txtDesc.Text(), L"");
    EXPECT_EQ(log.serverCalls,
              (Strings{L"GetDisplayName 104 Achats", L"GetDisplayName 114 Achats"}));
    dialog.Unload();
  });
}

TEST_F(EditGroup, NamesWithBlanksAroundAreShownTrimmed) {
  Raw().Execute("UPDATE QRGROUP SET NAME = '  Labo  ', DESCR = '  Essais ' WHERE GROUPID = 12");
  Raw().Execute("UPDATE QRUSER SET NAME = ' Martin ' WHERE USERID = 9");
  Edit(12, [](frmEditGroup& dialog) {
    EXPECT_EQ(dialog.txtGroupName.Text(), L"Labo");
    EXPECT_EQ(dialog.txtDesc.Text(), L"Essais");
    EXPECT_EQ(TextsOf(dialog.List1[dialog.kMembers]), (Strings{L"Clément", L"Martin", L"Œuvrard"}));
    dialog.Unload();
  });
}

TEST_F(EditGroup, OkWithoutAChangeWritesEverythingAgainAndHandsBack) {
  exchange.accountGone = true;
  Edit(12, [this](frmEditGroup& dialog) {
    ClearLog();
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_EQ(log.calls, SaveCalls(12, {L"GetDisplayName 0 Mesures et essais"}, 3, 1));
  });
  EXPECT_EQ(RowOf(12), (std::vector<std::string>{"Laboratoire", "Mesures et essais"}));
  EXPECT_EQ(MembersOf(12), (Ids{9, 34, 38}));
  EXPECT_EQ(PermissionsOf(12), Ids{20});
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_FALSE(exchange.accountGone);
  EXPECT_EQ(exchange.GroupID, 12);
  EXPECT_EQ(exchange.GroupName, L"Laboratoire (Mesures et essais)");
}

TEST_F(EditGroup, EveryFieldAndListIsWritten) {
  Edit(12, [this](frmEditGroup& dialog) {
    user.Type(dialog.txtGroupName, L"  Essais ");
    user.Type(dialog.txtDesc, L" Contrôle final  ");
    Choose(dialog.List1[dialog.kMembers], L"Clément");
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    Toggle(dialog.List1[dialog.kPermissions], L"Saisir un relevé de contrôle");
    Toggle(dialog.List1[dialog.kPermissions], L"User administration");
    Toggle(dialog.List1[dialog.kPermissions], L"Session audit");
    ClearLog();
    user.Click(dialog.cmdOK);
    EXPECT_EQ(log.calls, SaveCalls(12, {L"GetDisplayName 0 Contrôle final"}, 2, 2));
  });
  EXPECT_EQ(RowOf(12), (std::vector<std::string>{"Essais", "Contrôle final"}));
  EXPECT_EQ(MembersOf(12), (Ids{9, 38}));
  EXPECT_EQ(PermissionsOf(12), (Ids{1, 30}));
  EXPECT_EQ(exchange.GroupName, L"Essais (Contrôle final)");
  EXPECT_EQ(exchange.StoredName, L"Essais");
}

TEST_F(EditGroup, ADescriptionOfBlanksIsStoredAsNullAndNotShown) {
  Edit(12, [this](frmEditGroup& dialog) {
    user.Type(dialog.txtDesc, L"   ");
    ClearLog();
    user.Click(dialog.cmdOK);
    EXPECT_EQ(log.calls, SaveCalls(12, {}, 3, 1));
  });
  EXPECT_EQ(RowOf(12), (std::vector<std::string>{"Laboratoire", "NULL"}));
  EXPECT_EQ(exchange.GroupName, L"Laboratoire");
}

TEST_F(EditGroup, AllAndNoneCheckAndUncheckEveryPermission) {
  Edit(12, [this](frmEditGroup& dialog) {
    user.Click(dialog.cmdBtn[dialog.kAllPermissions]);
    EXPECT_EQ(dialog.List1[dialog.kPermissions].SelCount(), 30);
    user.Click(dialog.cmdBtn[dialog.kNoPermission]);
    EXPECT_EQ(dialog.List1[dialog.kPermissions].SelCount(), 0);
    user.Click(dialog.cmdBtn[dialog.kAllPermissions]);
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(PermissionsOf(12).size(), 30U);
}

TEST_F(EditGroup, RemovingMembersGoesOnToTheNextAndEndsWithADisabledButton) {
  Edit(12, [this](frmEditGroup& dialog) {
    EXPECT_TRUE(dialog.cmdBtn[dialog.kRemove].Enabled());
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 3);  // nobody was selected
    Choose(dialog.List1[dialog.kMembers], L"Martin");
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kMembers]), Ids{Sample::kOeuvrard});
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kMembers]), Ids{Sample::kClement});
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 0);
    EXPECT_FALSE(dialog.cmdBtn[dialog.kRemove].Enabled());
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(MembersOf(12), Ids{});
}

TEST_F(EditGroup, AGroupWithoutMembersStartsWithRemoveDisabled) {
  Raw().Execute("DELETE FROM QRUSGP WHERE GROUPID = 12");
  Edit(12, [](frmEditGroup& dialog) {
    EXPECT_FALSE(dialog.cmdBtn[dialog.kRemove].Enabled());
    dialog.Unload();
  });
}

TEST_F(EditGroup, AdminMayBeTakenOutOfAnOrdinaryGroup) {
  Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (1, 12)");
  Edit(12, [this](frmEditGroup& dialog) {
    Choose(dialog.List1[dialog.kMembers], L"Admin");
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(MembersOf(12), (Ids{9, 34, 38}));
}

TEST_F(EditGroup, TheRefusalNamesAdminAndLeavesHimWhereHeMustStay) {
  Raw().Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (1, 12)");
  Edit(12, [this](frmEditGroup& dialog) {
    dialog.IsRemoveAdmin = false;
    const int admin = ItemOf(dialog.List1[dialog.kMembers], 1);
    user.Choose(dialog.List1[dialog.kMembers], admin);
    ExpectInformation(L"Impossible de supprimer l'utilisateur de 'Admin' le groupe.");
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 4);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListIndex(), admin);
    EXPECT_TRUE(dialog.cmdBtn[dialog.kRemove].Enabled());
    Choose(dialog.List1[dialog.kMembers], L"Martin");
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 3);
    dialog.cmdOK.Click();
  });
  EXPECT_EQ(MembersOf(12), (Ids{1, 34, 38}));
}

TEST_F(EditGroup, NobodyIsKeptFromWritingWhileTheDialogIsOpen) {
  Edit(12, [this](frmEditGroup& dialog) {
    Raw().Execute("UPDATE QRGROUP SET DESCR = 'autre' WHERE GROUPID = 12");
    Raw().Execute("DELETE FROM QRUSGP WHERE GROUPID = 12 AND USERID = 9");
    Raw().Execute("INSERT INTO QRGPRM (GROUPID, PERMID) VALUES (12, 5)");
    user.Click(dialog.cmdOK);
  });
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(RowOf(12), (std::vector<std::string>{"Laboratoire", "Mesures et essais"}));
  EXPECT_EQ(MembersOf(12), (Ids{9, 34, 38}));
  EXPECT_EQ(PermissionsOf(12), Ids{20});
}

TEST_F(EditGroup, AGroupThatIsGoneByThenIsToldAndItsLinksAreLeftAlone) {
  Edit(12, [this](frmEditGroup& dialog) {
    Raw().Execute("UPDATE QRGROUP SET NAME = 'Laboratoire(12)', VFLG = 'D' WHERE GROUPID = 12");
    exchange.AddNode = true;
    Choose(dialog.List1[dialog.kMembers], L"Martin");
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    ClearLog();
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_EQ(log.calls,
              (Strings{L"GetDisplayName 104 Administrators", L"GetDisplayName 104 Everyone",
                       L"MoveFirst " + SqlSelectGroup(12)}));
  });
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_TRUE(exchange.accountGone);
  EXPECT_EQ(MembersOf(12), (Ids{9, 34, 38}));
  EXPECT_EQ(RowOf(12)[0], "Laboratoire(12)");
}

TEST_F(EditGroup, AGroupThatGoesInTheVeryMomentOfWritingIsReportedAndTold) {
  Edit(12, [this](frmEditGroup& dialog) {
    log.FailAt = [this](const std::wstring& call) {
      if (call == L"Update " + SqlSelectGroup(12)) {
        Raw().Execute("UPDATE QRGROUP SET VFLG = 'D' WHERE GROUPID = 12");
      }
      return 0L;
    };
    ExpectReport(L"EditGroup");
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_TRUE(exchange.accountGone);
  EXPECT_EQ(MembersOf(12), (Ids{9, 34, 38}));
}

TEST_F(EditGroup, AGroupThatIsGoneBeforeTheDialogOpensIsNotShown) {
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Laboratoire(12)', VFLG = 'D' WHERE GROUPID = 12");
  exchange.AddNode = true;
  frmEditGroup dialog(exchange);
  dialog.GroupID = 12;
  dialog.ShowModal(window);
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_TRUE(exchange.accountGone);
}

}  // namespace
}  // namespace dialogs
