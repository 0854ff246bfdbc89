#include "ListItemTest.h"
#include "app/StringIds.h"

#include "app/MShowHelp.h"
#include "controls/MsgBox.h"
#include "data/Text.h"
#include "tests/support/controls/ShownContent.h"

namespace dialogs {
namespace {

using controls::kResultNo;
using controls::kResultYes;
using test_support::kKeyEnter;
using test_support::kKeyEscape;
using test_support::kKeySpace;
using test_support::kKeyTab;

class ListItemDialog : public ListItemTest {};

// The buttons "all" and "none".
void ExpectButtons(const frmListItem& chooser, bool all, bool none) {
  EXPECT_EQ(chooser.cmdBtn[chooser.kCheckAll].Enabled(), all);
  EXPECT_EQ(chooser.cmdBtn[chooser.kCheckNone].Enabled(), none);
}

TEST_F(ListItemDialog, EveryCaptionComesFromTheStringTable) {
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    EXPECT_EQ(shown.Caption(), L"Liste des Choix : Groupes");
    EXPECT_EQ(shown.lbl1.Caption(), L"Cochez un \x00E9l\x00E9ment puis cliquez sur OK. ");
    EXPECT_EQ(shown.cmdBtn[shown.kCheckAll].Caption(), L"&Tous");
    EXPECT_EQ(shown.cmdBtn[shown.kCheckNone].Caption(), L"&Aucun");
    EXPECT_EQ(shown.cmdOK.Caption(), L"OK");
    EXPECT_EQ(shown.cmdCancel.Caption(), L"Annuler");
    EXPECT_EQ(shown.Command1.Caption(), L"A&ide");
    user.Close(shown);
  });
}

TEST_F(ListItemDialog, TheCaptionNamesThePermissions) {
  PreparePermissionsOfGroup(kLaboratory);
  Show([this](frmListItem& shown) {
    EXPECT_EQ(shown.Caption(), L"Liste des Choix : Permissions");
    user.Close(shown);
  });
}

TEST_F(ListItemDialog, GroupsOfAUserAreThoseHeIsNotInUnderTheirDisplayNames) {
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    EXPECT_EQ(TextsOf(shown.List1), (Texts{L"Achats", L"Administrateurs", L"Comptabilit\x00E9",
                                           L"Direction", L"Informatique", L"M\x00E9thodes",
                                           L"Qualit\x00E9", L"Ressources humaines", L"Ventes"}));
    EXPECT_EQ(IdsOf(shown.List1), (Ids{9, 1, 4, 3, 11, 8, 6, 5, 10}));
    EXPECT_EQ(shown.List1.SelCount(), 0);
    user.Close(shown);
  });
}

TEST_F(ListItemDialog, PermissionsOfAUserAreThoseHeDoesNotHoldDirectly) {
  PreparePermissionsOf(kMartin);
  Show([this](frmListItem& shown) {
    ASSERT_EQ(shown.List1.ListCount(), 28);
    EXPECT_EQ(shown.List1.List(ItemOf(shown.List1, 1)), L"Administration des utilisateurs");
    EXPECT_EQ(shown.List1.List(ItemOf(shown.List1, 30)), L"Audit des sessions");
    user.Close(shown);
  });
}

TEST_F(ListItemDialog, APermissionThatAUserHasThroughAGroupIsStillOffered) {
  // 15 comes from Production.
  ASSERT_EQ(Raw().Number("select count(*) from qrgprm where groupid = 7 and permid = 15"), 1);
  PreparePermissionsOf(kMartin);
  Show([this](frmListItem& shown) {
    EXPECT_EQ(shown.List1.List(ItemOf(shown.List1, 15)), L"Corriger le stock");
    user.Close(shown);
  });
}

TEST_F(ListItemDialog, PermissionsOfAGroupAreThoseItDoesNotHold) {
  PreparePermissionsOfGroup(kLaboratory);
  Show([this](frmListItem& shown) {
    Ids wanted;
    for (const auto& permission : Sample::PermissionsByName()) {
      if (permission.id != Sample::kReadings) wanted.push_back(permission.id);
    }
    EXPECT_EQ(IdsOf(shown.List1), wanted);
    user.Close(shown);
  });
}

TEST_F(ListItemDialog, TwoOwnersOneAfterTheOtherSeeOnlyWhatEachLacks) {
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) { user.Close(shown); });
  frmListItem other(exchange);
  Prepare(other, app::kGroups, app::kMemberOf, 2);
  DialogFixture::Show<frmListItem>(other, [this](frmListItem& shown) {
    EXPECT_EQ(IdsOf(shown.List1), (Ids{9, 4, 3, 12, 8, 7, 6, 5, 10}));
    user.Close(shown);
  });
  // The same chooser again, for another owner and another relation.
  PreparePermissionsOf(21);
  Show([this](frmListItem& shown) {
    EXPECT_EQ(shown.List1.ListCount(), 28);
    for (const std::int32_t id : IdsOf(shown.List1)) EXPECT_TRUE(id != 21 && id != 22);
    user.Close(shown);
  });
}

TEST_F(ListItemDialog, AnOwnerThatHasEveryCandidateSeesAnEmptyListAndOkWritesNothing) {
  Raw().Execute("insert or ignore into qrusgp select 9, groupid from qrgroupv");
  exchange.AddNode = true;
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    EXPECT_EQ(shown.List1.ListCount(), 0);
    EXPECT_TRUE(shown.List1.HasFocus());
    ClearLog();
    user.Click(shown.cmdOK);
  });
  EXPECT_EQ(log.calls, Texts{});
  EXPECT_FALSE(exchange.AddNode);
}

TEST_F(ListItemDialog, AllOnAnEmptyListLeavesBothButtonsAsTheClickSetsThem) {
  Raw().Execute("insert or ignore into qrusgp select 9, groupid from qrgroupv");
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    user.Click(shown.cmdBtn[shown.kCheckAll]);
    ExpectButtons(shown, false, true);
    ExpectDiscardQuestion(kResultYes);
    user.Close(shown);
  });
}

TEST_F(ListItemDialog, AlreadyLinkedTwiceOverIsLeftOutOnce) {
  // Two candidates of one id, as a database without a primary key may have: each link takes one.
  Raw().Execute("drop view qrgroupv");
  Raw().Execute(
      "create view qrgroupv as select groupid, name, descr from qrgroup"
      " union all select 12, 'Zwilling', null");
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    EXPECT_EQ(shown.List1.List(ItemOf(shown.List1, 12)), L"Zwilling");
    user.Close(shown);
  });
}

TEST_F(ListItemDialog, ButtonsFollowHowManyAreTicked) {
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    Toggle(shown.List1, L"Direction");
    ExpectButtons(shown, true, true);
    Toggle(shown.List1, L"Direction");
    ExpectButtons(shown, true, false);
    for (int i = 0; i < shown.List1.ListCount(); ++i) user.Toggle(shown.List1, i);
    ExpectButtons(shown, false, true);
    Toggle(shown.List1, L"Direction");
    ExpectButtons(shown, true, true);
    ExpectDiscardQuestion(kResultYes);
    user.Close(shown);
  });
}

TEST_F(ListItemDialog, AllAndNoneTickEveryItem) {
  PreparePermissionsOf(kMartin);
  Show([this](frmListItem& shown) {
    user.Click(shown.cmdBtn[shown.kCheckAll]);
    EXPECT_EQ(shown.List1.SelCount(), 28);
    ExpectButtons(shown, false, true);
    user.Click(shown.cmdBtn[shown.kCheckNone]);
    EXPECT_EQ(shown.List1.SelCount(), 0);
    ExpectButtons(shown, true, false);
    ExpectDiscardQuestion(kResultYes);
    user.Close(shown);
  });
}

TEST_F(ListItemDialog, CancelWithoutAChangeAsksNothing) {
  PrepareGroupsOf(kMartin);
  exchange.AddNode = true;
  Show([this](frmListItem& shown) { user.Click(shown.cmdCancel); });
  EXPECT_FALSE(exchange.AddNode);
}

TEST_F(ListItemDialog, TickingThenUntickingStillCountsAsAChangeForCancel) {
  PrepareGroupsOf(kMartin);
  exchange.AddNode = true;
  Show([this](frmListItem& shown) {
    Toggle(shown.List1, L"Direction");
    Toggle(shown.List1, L"Direction");
    ExpectDiscardQuestion(kResultYes);
    user.Click(shown.cmdCancel);
  });
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_EQ(user.SeenBoxes().size(), 1U);
}

TEST_F(ListItemDialog, AllOrNoneAloneCountsAsAChange) {
  for (const int Index : {0, 1}) {
    PrepareGroupsOf(kMartin);
    Show([this, Index](frmListItem& shown) {
      user.Click(shown.cmdBtn[Index]);
      ExpectDiscardQuestion(kResultYes);
      user.Click(shown.cmdCancel);
    });
  }
}

TEST_F(ListItemDialog, NoKeepsTheDialogAndItsChangeOnCancelEscapeAndTheCloseBox) {
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    Toggle(shown.List1, L"Direction");
    ExpectDiscardQuestion(kResultNo);
    user.Click(shown.cmdCancel);
    ExpectDiscardQuestion(kResultNo);
    user.PressKey(shown, kKeyEscape);
    ExpectDiscardQuestion(kResultNo);
    user.Close(shown);
    EXPECT_EQ(SelectedIds(shown.List1), Ids{3});
    ExpectDiscardQuestion(kResultYes);
    user.PressKey(shown, kKeyEscape);
  });
  EXPECT_EQ(user.SeenBoxes().size(), 4U);
}

TEST_F(ListItemDialog, TheCloseBoxAsksOnceAndWritesNothing) {
  const Ids before = GroupsInDatabase(kMartin);
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    Toggle(shown.List1, L"Direction");
    ClearLog();
    ExpectDiscardQuestion(kResultYes);
    user.Close(shown);
  });
  EXPECT_EQ(user.SeenBoxes().size(), 1U);
  EXPECT_EQ(log.calls, Texts{});
  EXPECT_EQ(GroupsInDatabase(kMartin), before);
  EXPECT_FALSE(exchange.AddNode);
}

TEST_F(ListItemDialog, TheHelpButtonAndF1OpenTheTopicOfWhatIsListed) {
  PrepareGroupsOf(kMartin);
  const auto askTwice = [this](frmListItem& shown) {
    user.Click(shown.Command1);
    user.PressKey(shown, controls::kKeyF1);
    user.Close(shown);
  };
  Show(askTwice);
  PreparePermissionsOf(kMartin);
  Show(askTwice);
  PreparePermissionsOfGroup(kLaboratory);
  Show(askTwice);
  std::vector<int> topics;
  for (const auto& call : user.HelpCalls()) topics.push_back(call.topic);
  EXPECT_EQ(topics, (std::vector<int>{1206, 1206, 1207, 1207, 1207, 1207}));
}

TEST_F(ListItemDialog, IsWorkedByKeyboardAlone) {
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    EXPECT_TRUE(shown.List1.HasFocus());
    EXPECT_EQ(shown.List1.ListIndex(), 0);
    user.PressKey(shown, kKeySpace);
    EXPECT_TRUE(shown.List1.Selected(0));
    for (controls::Control* next :
         {static_cast<controls::Control*>(&shown.cmdBtn[shown.kCheckAll]),
          static_cast<controls::Control*>(&shown.cmdBtn[shown.kCheckNone]),
          static_cast<controls::Control*>(&shown.cmdOK),
          static_cast<controls::Control*>(&shown.cmdCancel),
          static_cast<controls::Control*>(&shown.Command1),
          static_cast<controls::Control*>(&shown.List1)}) {
      user.PressKey(shown, kKeyTab);
      EXPECT_TRUE(next->HasFocus());
    }
    user.PressKey(shown, kKeySpace);
    user.PressKey(shown, kKeyEnter);
  });
  EXPECT_FALSE(exchange.AddNode);
}

TEST_F(ListItemDialog, AllAndNoneHandTheFocusToTheList) {
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    user.Mnemonic(shown, L't');
    EXPECT_EQ(shown.List1.SelCount(), 9);
    EXPECT_TRUE(shown.List1.HasFocus());
    user.Mnemonic(shown, L'a');
    EXPECT_EQ(shown.List1.SelCount(), 0);
    EXPECT_TRUE(shown.List1.HasFocus());
    ExpectDiscardQuestion(kResultYes);
    user.PressKey(shown, kKeyEscape);
  });
}

TEST_F(ListItemDialog, HostileNamesAreShownAsTheyAre) {
  const Texts names = {L"d'Arc \"Jeanne\"",
                       L"x'; DELETE FROM QRUSGP; --",
                       L"/* a */ (b) 100 % %s \\TUS \\U12 && &Co",
                       L"  blanks  ",
                       L"tab\there",
                       L"\xD835\xDD10\xD83D\xDE00",
                       std::wstring(4000, L'm')};
  auto raw = Raw();
  for (std::size_t i = 0; i < names.size(); ++i) {
    std::string quoted;
    for (const char c : data::ToUtf8(names[i])) quoted.append(c == '\'' ? "''" : std::string(1, c));
    raw.Execute("insert into qrgroup (groupid, name) values (" + std::to_string(100 + i) + ", '" +
                quoted + "')");
  }
  PrepareGroupsOf(kMartin);
  Show([&](frmListItem& shown) {
    const auto items = test_support::ShownItems(shown.List1);
    for (std::size_t i = 0; i < names.size(); ++i) {
      const int item = ItemOf(shown.List1, static_cast<std::int32_t>(100 + i));
      EXPECT_EQ(shown.List1.List(item), names[i]);
      EXPECT_EQ(items[static_cast<std::size_t>(item)].text, names[i]);
    }
    Tick(shown, 101);
    user.Click(shown.cmdOK);
  });
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(GroupsInDatabase(kMartin), (Ids{2, 7, 12, 101}));
}

TEST_F(ListItemDialog, RefusesAnotherKindOrRelationWithError5BeforeItAsksTheDatabase) {
  struct Wrong {
    std::wstring kind;
    std::wstring relation;
  };
  const Wrong wrongs[] = {{L"groupes", Text(app::kMemberOf)},
                          {L"", Text(app::kUserPermissions)},
                          {Text(app::kUsersTab), Text(app::kMemberOf)},
                          {Text(app::kGroups), L""},
                          {Text(app::kGroups), Text(app::kMembers)},
                          {Text(app::kPermissions), Text(app::kAllPermissions)},
                          {Text(app::kGroups), Text(app::kUserPermissions)},
                          {Text(app::kGroups), Text(app::kGroupPermissions)},
                          {Text(app::kPermissions), Text(app::kMemberOf)},
                          {Text(app::kPermissions), L"droits utilisateur"}};
  for (const Wrong& wrong : wrongs) {
    dialog.ListKind = wrong.kind;
    dialog.RelationName = wrong.relation;
    dialog.OwnerID = kMartin;
    user.ExpectMsgBox(
        {.answer = controls::kResultOk,
         .prompt = L"Form Load Error [5]\r\n" + TextOfError(data::kInvalidProcedureCall),
         .style = controls::kExclamation,
         .title = L"Admin Utilisateurs"});
    dialog.ShowModal(window);
    EXPECT_FALSE(dialog.IsLoaded());
  }
  EXPECT_EQ(log.calls, Texts{});
}

}  // namespace
}  // namespace dialogs
