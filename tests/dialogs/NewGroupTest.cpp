#include <gtest/gtest.h>

#include "GroupDialogs.h"
#include "data/MSQLStatement.h"

namespace dialogs {
namespace {

class NewGroup : public GroupDialogs {};

// Up to and with the row of the group; 13 is the first free identifier of the sample.
Strings SaveCalls(const std::wstring& name) {
  const std::wstring row = data::SqlSelectGroup(13);
  return {L"GetDisplayName 114 " + name,
          L"GetDisplayName 104 Administrators",
          L"GetDisplayName 104 Everyone",
          L"NewIdentifier QRGPRN",
          row,
          L"AddNew " + row,
          L"Update " + row};
}

TEST_F(NewGroup, StartsEmptyWithAllPermissionsUnchecked) {
  New([this](frmNewGroup& dialog) {
    EXPECT_EQ(dialog.Caption(), L"Nouveau Groupe");
    EXPECT_EQ(dialog.txtGroupName.Text(), L"");
    EXPECT_EQ(dialog.txtDesc.Text(), L"");
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 0);
    EXPECT_EQ(dialog.List1[dialog.kPermissions].ListCount(), 30);
    EXPECT_EQ(dialog.List1[dialog.kPermissions].SelCount(), 0);
    EXPECT_FALSE(dialog.cmdBtn[dialog.kRemove].Enabled());
    EXPECT_EQ(dialog.GroupID, 0);
    EXPECT_TRUE(dialog.txtGroupName.HasFocus());
    EXPECT_EQ(log.calls, Strings{data::SqlSelectAllPermissions()});
    dialog.Unload();
  });
}

TEST_F(NewGroup, WritesRowMembersAndPermissionsInThisOrder) {
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L" Qualité Annecy ");
    user.Type(dialog.txtDesc, L" Contrôle final ");
    ExpectChooser([this](frmAddUserInGroup& chooser) {
      Choose(chooser.List1[chooser.kOthers], L"Martin");
      user.Click(chooser.cmdBtn[chooser.kAdd]);
      Choose(chooser.List1[chooser.kOthers], L"Moreau");
      user.Click(chooser.cmdBtn[chooser.kAdd]);
      user.Click(chooser.cmdOK);
    });
    user.Click(dialog.cmdBtn[dialog.kAssign]);
    Toggle(dialog.List1[dialog.kPermissions], L"Saisir une commande");
    Toggle(dialog.List1[dialog.kPermissions], L"Émettre un avoir");
    ClearLog();
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_EQ(dialog.GroupID, 13);
  });
  Strings calls = SaveCalls(L"Qualité Annecy");
  calls.push_back(data::SqlSelectGroupMemberships(13));
  AppendNewRows(calls, data::SqlSelectGroupMemberships(13), 2);
  calls.push_back(data::SqlSelectGroupPermRows(13));
  AppendNewRows(calls, data::SqlSelectGroupPermRows(13), 2);
  EXPECT_EQ(log.calls, calls);
  EXPECT_EQ(RowOf(13), (std::vector<std::string>{"Qualité Annecy", " Contrôle final "}));
  EXPECT_EQ(MembersOf(13), (Ids{2, 9}));
  EXPECT_EQ(PermissionsOf(13), (Ids{5, 10}));
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(exchange.GroupID, 13);
  EXPECT_EQ(exchange.GroupName, L"Qualité Annecy (Contrôle final)");
  EXPECT_EQ(exchange.StoredName, L"Qualité Annecy");
}

TEST_F(NewGroup, ADescriptionOfBlanksIsLeftEmpty) {
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Essais");
    user.Type(dialog.txtDesc, L"   ");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(RowOf(13), (std::vector<std::string>{"Essais", "NULL"}));
  EXPECT_EQ(MembersOf(13), Ids{});
  EXPECT_EQ(PermissionsOf(13), Ids{});
  EXPECT_EQ(exchange.GroupName, L"Essais");
}

TEST_F(NewGroup, ADescriptionIsStoredAsTypedAndNotMapped) {
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Essais");
    user.Type(dialog.txtDesc, L"Tous les utilisateurs");
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(RowOf(13)[1], "Tous les utilisateurs");
}

// Here the typed form is not known to mean a reserved name, but is what one is shown as.
TEST_F(NewGroup, ANameThatIsADisplayFormIsStoredAsTheNameItShows) {
  Raw().Execute("DELETE FROM QRDISPLAY WHERE CODE = 114");
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Ancien' WHERE GROUPID IN (1, 2)");
  Start();
  for (const wchar_t* shown : {L"Administrateurs", L"Tout le monde"}) {
    New([this, shown](frmNewGroup& dialog) {
      user.Type(dialog.txtGroupName, shown);
      user.Click(dialog.cmdOK);
    });
    EXPECT_EQ(exchange.GroupName, shown);
  }
  EXPECT_EQ(RowOf(13)[0], "Administrators");
  EXPECT_EQ(RowOf(14)[0], "Everyone");
}

TEST_F(NewGroup, EachNewGroupGetsAnIdentifierOfItsOwn) {
  for (const wchar_t* name : {L"Un", L"Deux"}) {
    New([this, name](frmNewGroup& dialog) {
      user.Type(dialog.txtGroupName, name);
      user.Click(dialog.cmdOK);
    });
  }
  EXPECT_EQ(RowOf(13)[0], "Un");
  EXPECT_EQ(RowOf(14)[0], "Deux");
  EXPECT_EQ(exchange.GroupID, 14);
}

TEST_F(NewGroup, AnIdentifierThatIsTakenIsReportedAndItsGroupLeftAlone) {
  Raw().Execute("UPDATE QRCOUNTER SET LASTVALUE = 11 WHERE NAME = 'QRGPRN'");
  New([this](frmNewGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Essais");
    user.Click(dialog.cmdBtn[dialog.kAllPermissions]);
    user.ExpectMsgBox(
        {.answer = controls::kResultOk,
         .prompt = L"NewGroup Error [457]\r\nCette clé est déjà utilisée par un élément de la "
                   L"collection",
         .style = controls::kExclamation,
         .title = L"Admin Utilisateurs"});
    user.Click(dialog.cmdOK);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_EQ(RowOf(12)[0], "Laboratoire");
  EXPECT_EQ(PermissionsOf(12), Ids{20});
}

}  // namespace
}  // namespace dialogs
