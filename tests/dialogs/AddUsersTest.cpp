#include <gtest/gtest.h>

#include <algorithm>

#include "GroupDialogs.h"
#include "data/Collation.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"

namespace dialogs {
namespace {

class AddUsersToGroup : public GroupDialogs {
 protected:
  // Leaves these users alone in the left list, in this order.
  void KeepUsers(const std::string& ids) {
    Raw().Execute("UPDATE QRUSER SET VFLG = 'D' WHERE USERID NOT IN (" + ids + ")");
  }
  static void ExpectButtons(const frmAddUserInGroup& dialog, bool right, bool left) {
    EXPECT_EQ(dialog.cmdBtn[dialog.kAdd].Enabled(), right);
    EXPECT_EQ(dialog.cmdBtn[dialog.kAddAll].Enabled(), right);
    EXPECT_EQ(dialog.cmdBtn[dialog.kRemove].Enabled(), left);
    EXPECT_EQ(dialog.cmdBtn[dialog.kRemoveAll].Enabled(), left);
  }
  // Types into a box and tells which name its list has selected.
  std::wstring Search(frmAddUserInGroup& dialog, int Index, const std::wstring& typed) {
    user.Focus(dialog.cmdCancel);
    user.Type(dialog.txtUserName[Index], typed);
    EXPECT_EQ(dialog.List1[Index].SelCount(), 1);
    return dialog.List1[Index].List(dialog.List1[Index].ListIndex());
  }
  void Leave(frmAddUserInGroup& dialog) {
    ExpectDiscardQuestion(controls::kResultYes);
    user.Click(dialog.cmdCancel);
  }
};

TEST_F(AddUsersToGroup, ShowsTheMembersOnTheRightAndTheOthersOnTheLeftByName) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    EXPECT_EQ(dialog.Caption(), L"Ajouter des Utilisateurs : Labo");
    EXPECT_EQ(dialog.lbl1[1].Caption(),
              L"1 ) Saisissez les premières lettres du nom de l'utilisateur recherché.");
    EXPECT_EQ(dialog.lbl1[2].Caption(),
              L"2 ) Sélectionnez la personne souhaitée puis cliquez sur \">\".");
    EXPECT_EQ(dialog.lbl1[3].Caption(),
              L"3 ) Saisissez les premières lettres du nom de l'utilisateur recherché.");
    EXPECT_EQ(dialog.lbl1[4].Caption(),
              L"4 ) Sélectionnez la personne souhaitée puis cliquez sur \"<\".");
    EXPECT_EQ(dialog.fraAvailableUser.Caption(), L"Ensemble des Utilisateurs");
    EXPECT_EQ(dialog.fraSelecteUsers.Caption(), L"Utilisateurs Sélectionnés");
    EXPECT_EQ(dialog.cmdBtn[dialog.kAdd].Caption(), L">");
    EXPECT_EQ(dialog.cmdBtn[dialog.kAddAll].Caption(), L">>");
    EXPECT_EQ(dialog.cmdBtn[dialog.kRemove].Caption(), L"<");
    EXPECT_EQ(dialog.cmdBtn[dialog.kRemoveAll].Caption(), L"<<");
    EXPECT_EQ(dialog.cmdOK.Caption(), L"OK");
    EXPECT_EQ(dialog.cmdCancel.Caption(), L"Annuler");
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{34, 9, 38}));
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListCount(), 36);
    EXPECT_EQ(dialog.List1[dialog.kOthers].List(0), L"Admin");
    EXPECT_EQ(dialog.List1[dialog.kOthers].List(1), L"Bernard");
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kOthers]), Ids{1});
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListIndex(), 0);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kMembers]), Ids{Sample::kClement});
    ExpectButtons(dialog, true, true);
    EXPECT_TRUE(dialog.txtUserName[dialog.kOthers].HasFocus());
    EXPECT_EQ(log.calls, (Strings{data::SqlSelectAllUsers(), data::SqlSelectGroupUsers(12)}));
    user.Click(dialog.cmdCancel);
  });
}

TEST_F(AddUsersToGroup, AGroupWithNoMembersHasAnEmptyRightListAndNothingToMoveLeft) {
  Raw().Execute("DELETE FROM QRUSGP WHERE GROUPID = 12");
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 0);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListIndex(), -1);
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListCount(), 39);
    ExpectButtons(dialog, true, false);
    user.Click(dialog.cmdCancel);
  });
}

TEST_F(AddUsersToGroup, AGroupWithEverybodyHasAnEmptyLeftList) {
  AddUsers(2, [this](frmAddUserInGroup& dialog) {
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListCount(), 0);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 39);
    ExpectButtons(dialog, false, true);
    user.Click(dialog.cmdCancel);
  });
}

TEST_F(AddUsersToGroup, TypingMaSelectsMartinMzMoreauAndZzNothingNew) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    dialog.List1[dialog.kOthers].Clear();
    for (const wchar_t* name : {L"Bernard", L"Martin", L"Moreau"})
      dialog.List1[dialog.kOthers].AddItem(name);
    EXPECT_EQ(Search(dialog, 1, L"ma"), L"Martin");
    EXPECT_EQ(Search(dialog, 1, L"mz"), L"Moreau");
    EXPECT_EQ(Search(dialog, 1, L"ma"), L"Martin");
    EXPECT_EQ(Search(dialog, 1, L"zz"), L"Martin");
    EXPECT_EQ(Search(dialog, 1, L"c"), L"Martin");  // the first that follows
    EXPECT_EQ(Search(dialog, 1, L"MARTIN"), L"Martin");
    EXPECT_EQ(Search(dialog, 1, L"martino"), L"Moreau");
    EXPECT_EQ(Search(dialog, 1, L"  b "), L"Bernard");
    EXPECT_EQ(Search(dialog, 1, L"mo"), L"Moreau");
    EXPECT_EQ(Search(dialog, 1, L" "), L"Bernard");
    dialog.Unload();
  });
}

TEST_F(AddUsersToGroup, TypingOverAListOfOneItemSelectsNothing) {
  KeepUsers("3, 9");
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    for (int Index : {1, 2}) {
      ASSERT_EQ(dialog.List1[Index].ListCount(), 1);
      dialog.List1[Index].SetSelected(0, false);
      user.Type(dialog.txtUserName[Index], L"m");
      EXPECT_EQ(dialog.List1[Index].SelCount(), 0);
    }
    dialog.Unload();
  });
}

TEST_F(AddUsersToGroup, TheSearchLooksThroughAccentsAndCase) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    EXPECT_EQ(Search(dialog, 1, L"lefevre"), L"Lefèvre");
    EXPECT_EQ(Search(dialog, 1, L"MULLER"), L"Müller");
    EXPECT_EQ(Search(dialog, 1, L"guérin"), L"Guérin");
    EXPECT_EQ(Search(dialog, 1, L"l'h"), L"L'Hermitte");
    EXPECT_EQ(Search(dialog, 2, L"oeuv"), L"Œuvrard");
    EXPECT_EQ(Search(dialog, 2, L"M"), L"Martin");
    dialog.Unload();
  });
}

TEST_F(AddUsersToGroup, OneUserIsMovedRightAndSelectedThere) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    Choose(dialog.List1[dialog.kOthers], L"Bernard");
    const std::wstring next = dialog.List1[dialog.kOthers].List(2);
    user.Click(dialog.cmdBtn[dialog.kAdd]);
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{34, 9, 38, 3}));
    EXPECT_EQ(dialog.List1[dialog.kMembers].List(3), L"Bernard");
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kMembers]), Ids{3});
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListIndex(), 3);
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListCount(), 35);
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListIndex(), 1);
    EXPECT_EQ(dialog.List1[dialog.kOthers].List(1), next);
    EXPECT_EQ(dialog.List1[dialog.kOthers].SelCount(), 1);
    Leave(dialog);
  });
}

TEST_F(AddUsersToGroup, TheLastUserOfAListLeavesTheOneBeforeSelected) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    Choose(dialog.List1[dialog.kMembers], L"Œuvrard");
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kMembers]), Ids{Sample::kMartin});
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kOthers]), Ids{38});
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListIndex(), 36);  // after the others, as moved
    Leave(dialog);
  });
}

TEST_F(AddUsersToGroup, SeveralUsersAreMovedAtOnceInTheirOrder) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    Choose(dialog.List1[dialog.kOthers], L"Bernard");
    Toggle(dialog.List1[dialog.kOthers], L"Roux");
    Toggle(dialog.List1[dialog.kOthers], L"Dubois");
    user.Click(dialog.cmdBtn[dialog.kAdd]);
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{34, 9, 38, 3, 4, 12}));
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kMembers]), (Ids{3, 4, 12}));
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListCount(), 33);
    EXPECT_EQ(dialog.List1[dialog.kOthers].SelCount(), 1);
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListIndex(), 1);
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{34, 9, 38}));
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kOthers]), (Ids{3, 4, 12}));
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kMembers]), Ids{38});
    Leave(dialog);
  });
}

TEST_F(AddUsersToGroup, ADoubleClickMovesAUser) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    controls::ListBox& others = dialog.List1[dialog.kOthers];
    controls::ListBox& members = dialog.List1[dialog.kMembers];
    user.DoubleClick(others, ItemOf(others, L"Admin"));
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{34, 9, 38, 1}));
    user.DoubleClick(members, ItemOf(members, L"Martin"));
    EXPECT_EQ(IdsOf(members), (Ids{34, 38, 1}));
    EXPECT_EQ(IdsOf(others).back(), Sample::kMartin);
    Leave(dialog);
  });
}

TEST_F(AddUsersToGroup, AllAreMovedInListOrderAndTheButtonsFollow) {
  KeepUsers("2, 3, 9, 34");
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kOthers]), (Ids{3, 2}));
    user.Click(dialog.cmdBtn[dialog.kAddAll]);
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{34, 9, 3, 2}));
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kMembers]), (Ids{2, 3}));
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListCount(), 0);
    ExpectButtons(dialog, false, true);
    user.Click(dialog.cmdBtn[dialog.kRemoveAll]);
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kOthers]), (Ids{34, 9, 3, 2}));
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 0);
    ExpectButtons(dialog, true, false);
    Leave(dialog);
  });
}

TEST_F(AddUsersToGroup, AButtonThatEmptiesAListHandsTheFocusToIt) {
  KeepUsers("2, 3, 9, 34");
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    user.Click(dialog.cmdBtn[dialog.kAddAll]);
    EXPECT_TRUE(dialog.List1[dialog.kOthers].HasFocus());
    user.Click(dialog.cmdBtn[dialog.kRemoveAll]);
    EXPECT_TRUE(dialog.List1[dialog.kMembers].HasFocus());
    Leave(dialog);
  });
}

TEST_F(AddUsersToGroup, EnterInASearchBoxMovesTheUserThatWasFound) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    user.Type(dialog.txtUserName[dialog.kOthers], L"bern");
    user.PressKey(dialog, test_support::kKeyEnter);
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{34, 9, 38, 3}));
    EXPECT_TRUE(dialog.txtUserName[dialog.kOthers].HasFocus());
    user.Type(dialog.txtUserName[dialog.kMembers], L"mart");
    user.PressKey(dialog, test_support::kKeyEnter);
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{34, 38, 3}));
    ASSERT_TRUE(dialog.IsLoaded());
    user.Type(dialog.txtUserName[dialog.kOthers], L" ");
    ASSERT_EQ(dialog.txtUserName[dialog.kOthers].Text(), L"");
    user.PressKey(dialog, test_support::kKeyEnter);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(MembersOf(12), (Ids{3, 9, 34, 38}));  // who was moved out while others stayed keeps his
}

TEST_F(AddUsersToGroup, EnterElsewhereIsOkAlsoAfterASearch) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    user.Type(dialog.txtUserName[dialog.kOthers], L"bern");
    user.Focus(dialog.List1[dialog.kOthers]);
    user.PressKey(dialog, test_support::kKeyEnter);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_EQ(MembersOf(12), (Ids{9, 34, 38}));
}

TEST_F(AddUsersToGroup, EnterInASearchBoxOverAnEmptyListDoesNothing) {
  KeepUsers("9, 34");
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    ASSERT_EQ(dialog.List1[dialog.kOthers].ListCount(), 0);
    user.Type(dialog.txtUserName[dialog.kOthers], L"bern");
    user.PressKey(dialog, test_support::kKeyEnter);
    EXPECT_TRUE(dialog.IsLoaded());
    dialog.Unload();
  });
}

// 30,000 users of French names, in the order in which the server gives them.
TEST_F(AddUsersToGroup, TheSearchFindsEveryNameOfAFullListWithAccents) {
  std::vector<std::wstring> names = {L"Œuvrard", L"de La Rochefoucauld", L"émile.sch",
                                     L"Fabrice.Arnaud", L"Emilie.Schmitt"};
  const wchar_t* const firstNames[] = {L"Élodie", L"andré",    L"Zoé",
                                       L"Œdipe",  L"jean-luc", L"D'Arc"};
  const wchar_t* const lastNames[] = {L"Schœlcher", L"de Boër", L"Müller", L"çelik", L"Noël"};
  for (int i = 0; names.size() < 30000; ++i) {
    names.push_back(std::wstring(firstNames[i % 6]) + L"." + lastNames[i % 5] + data::Decimal(i));
  }
  std::stable_sort(names.begin(), names.end(), [](const auto& left, const auto& right) {
    return data::CollationKey(left) < data::CollationKey(right);
  });
  AddUsers(12, [&](frmAddUserInGroup& dialog) {
    std::vector<ListItem> items;
    for (const std::wstring& name : names) items.push_back({name, 0});
    SetItems(dialog.List1[dialog.kOthers], items);
    EXPECT_EQ(Search(dialog, dialog.kOthers, L"oeuvr"), L"Œuvrard");
    EXPECT_EQ(Search(dialog, dialog.kOthers, L"de la r"), L"de La Rochefoucauld");
    EXPECT_EQ(Search(dialog, dialog.kOthers, L"émile.sch"), L"émile.sch");
    for (std::size_t i = 0; i < names.size(); i += 997) {
      EXPECT_EQ(Search(dialog, dialog.kOthers, names[i]), names[i]);
    }
    dialog.Unload();
  });
}

TEST_F(AddUsersToGroup, TheSearchAgreesWithTheOrderOfTheServer) {
  Raw().Execute(
      "WITH RECURSIVE n(i) AS (SELECT 1000 UNION ALL SELECT i + 1 FROM n WHERE i < 4999) "
      "INSERT INTO QRUSER (USERID, NAME) SELECT i, CASE i % 4 WHEN 0 THEN 'Élodie.' "
      "WHEN 1 THEN 'andré.' WHEN 2 THEN 'de Boër.' ELSE 'Zoé.' END || i FROM n");
  Raw().Execute(
      "INSERT INTO QRUSER (USERID, NAME) VALUES (5000, 'Œuvrier'), (5001, 'de La Rochefoucauld'), "
      "(5002, 'émile.sch'), (5003, 'Fabrice.Arnaud')");
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    EXPECT_EQ(Search(dialog, dialog.kOthers, L"œuvri"), L"Œuvrier");
    EXPECT_EQ(Search(dialog, dialog.kOthers, L"de la"), L"de La Rochefoucauld");
    EXPECT_EQ(Search(dialog, dialog.kOthers, L"émile.sch"), L"émile.sch");
    EXPECT_EQ(Search(dialog, dialog.kOthers, L"fabrice.a"), L"Fabrice.Arnaud");
    EXPECT_EQ(Search(dialog, dialog.kOthers, L"elodie.4996"), L"Élodie.4996");
    dialog.Unload();
  });
}

TEST_F(AddUsersToGroup, NothingSelectedMovesNothingAndIsNoChange) {
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    dialog.List1[dialog.kOthers].SetSelected(0, false);
    user.Click(dialog.cmdBtn[dialog.kAdd]);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 3);
    user.Click(dialog.cmdCancel);
    EXPECT_FALSE(dialog.IsLoaded());
  });
}

class AdminInAdministrators : public AddUsersToGroup {
 protected:
  void ExpectRefusal() {
    ExpectInformation(L"Impossible de supprimer l'utilisateur de 'Admin' le groupe.");
  }
};

TEST_F(AdminInAdministrators, IsRefusedAloneAndStaysSelected) {
  AddUsers(1, [this](frmAddUserInGroup& dialog) {
    Choose(dialog.List1[dialog.kMembers], L"Admin");
    ExpectRefusal();
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), (Ids{1, 2}));
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kMembers]), Ids{1});
    ExpectRefusal();
    user.DoubleClick(dialog.List1[dialog.kMembers], ItemOf(dialog.List1[dialog.kMembers], 1));
    user.Click(dialog.cmdCancel);  // nothing has changed
    EXPECT_FALSE(dialog.IsLoaded());
  });
}

TEST_F(AdminInAdministrators, StaysWhenSeveralOrAllOthersGo) {
  AddUsers(1, [this](frmAddUserInGroup& dialog) {
    Choose(dialog.List1[dialog.kMembers], L"Admin");
    Toggle(dialog.List1[dialog.kMembers], L"Moreau");
    ExpectRefusal();
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), Ids{1});
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kMembers]), Ids{1});
    EXPECT_EQ(SelectedIds(dialog.List1[dialog.kOthers]), Ids{2});
    ExpectRefusal();
    user.Click(dialog.cmdBtn[dialog.kRemoveAll]);
    EXPECT_EQ(IdsOf(dialog.List1[dialog.kMembers]), Ids{1});
    ExpectButtons(dialog, true, true);
    user.Click(dialog.cmdOK);
  });
  EXPECT_EQ(MembersOf(1), (Ids{1, 2}));
}

TEST_F(AdminInAdministrators, MayLeaveOtherGroups) {
  AddUsers(2, [this](frmAddUserInGroup& dialog) {
    user.Click(dialog.cmdBtn[dialog.kRemoveAll]);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 0);
    Leave(dialog);
  });
}

TEST_F(AdminInAdministrators, IsNobodyWhereThereIsNoAdmin) {
  frmAddUserInGroup dialog(exchange);
  dialog.IsRemoveAdmin = false;
  dialog.adminUserId = 0;
  dialog.GroupID = 1;
  Show<frmAddUserInGroup>(dialog, [this](frmAddUserInGroup& shown) {
    shown.List1[shown.kMembers].AddItem(L"Personne", 0);
    user.Click(shown.cmdBtn[shown.kRemoveAll]);
    EXPECT_EQ(shown.List1[shown.kMembers].ListCount(), 0);
    Leave(shown);
  });
}

TEST_F(AddUsersToGroup, TenThousandUsersAreMovedTogether) {
  Raw().Execute(
      "WITH RECURSIVE n(i) AS (SELECT 1000 UNION ALL SELECT i + 1 FROM n WHERE i < 10999) "
      "INSERT INTO QRUSER (USERID, NAME) SELECT i, 'User ' || i FROM n");
  Raw().Execute(
      "INSERT INTO QRUSGP (USERID, GROUPID) SELECT USERID, 12 FROM QRUSER "
      "WHERE USERID >= 6000");
  AddUsers(12, [this](frmAddUserInGroup& dialog) {
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListCount(), 5036);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 5003);
    user.Click(dialog.cmdBtn[dialog.kAddAll]);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 10039);
    EXPECT_EQ(dialog.List1[dialog.kMembers].SelCount(), 5036);
    user.Click(dialog.cmdBtn[dialog.kRemove]);
    EXPECT_EQ(dialog.List1[dialog.kMembers].ListCount(), 5003);
    EXPECT_EQ(dialog.List1[dialog.kOthers].ListCount(), 5036);
    Leave(dialog);
  });
}

}  // namespace
}  // namespace dialogs
