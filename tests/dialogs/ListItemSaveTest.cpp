// What the checklist chooser asks of the database and writes to it.

#include "ListItemTest.h"
#include "app/StringIds.h"
#include "controls/MsgBox.h"
#include "data/RunTimeError.h"
#include "data/Text.h"

namespace dialogs {
namespace {

class ListItemSave : public ListItemTest {
 protected:
  // The calls of a load that asks for the candidates under this mapping code.
  static Texts LoadCalls(const std::wstring& candidates, const std::wstring& code,
                         const Texts& names, const std::wstring& owned) {
    Texts calls{candidates};
    for (const std::wstring& name : names) calls.push_back(L"GetDisplayName " + code + L" " + name);
    calls.push_back(owned);
    return calls;
  }
  static void AddLinkCalls(Texts& calls, const std::wstring& statement) {
    calls.push_back(statement);
    calls.push_back(L"AddNew " + statement);
    calls.push_back(L"Update " + statement);
  }
  static Texts PermissionNames() {
    Texts names;
    for (const auto& permission : Sample::PermissionsByName()) {
      names.push_back(data::FromUtf8(permission.name));
    }
    return names;
  }
  // The dialog of the relation, whose candidates include all of these ids, with them ticked.
  void ShowTicked(const Ids& ids, const std::function<void(frmListItem&)>& then) {
    Show([&](frmListItem& shown) {
      for (const std::int32_t id : ids) Tick(shown, id);
      then(shown);
    });
  }

  void ExpectOverflow() {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = L"GetCountSelect Error [6]\r\n" + TextOfError(data::kOverflow),
                       .style = controls::kExclamation,
                       .title = L"Admin Utilisateurs"});
  }

  const Texts groupNames = {
      L"Achats",     L"Administrators", L"Comptabilit\x00E9",   L"Direction",
      L"Everyone",   L"Informatique",   L"Laboratoire",         L"M\x00E9thodes",
      L"Production", L"Qualit\x00E9",   L"Ressources humaines", L"Ventes"};
  const std::wstring allGroups =
      L"SELECT QRGROUPV.GROUPID,QRGROUPV.NAME ,QRGROUPV.DESCR  FROM QRGROUPV";
  const std::wstring allPermissions = L"SELECT QRPERM.PERMID,QRPERM.NAME FROM QRPERM";
};

TEST_F(ListItemSave, GroupsOfAUserAreReadAndAddedInTheOrderOfTheListWithTheIdsInEachOthersPlace) {
  PrepareGroupsOf(kMartin);
  ShowTicked({11, 6}, [this](frmListItem& shown) {
    EXPECT_EQ(log.calls, LoadCalls(allGroups, L"104", groupNames,
                                   L"SELECT QRUSGP.GROUPID FROM QRUSGP WHERE QRUSGP.USERID = 9"));
    ClearLog();
    user.Click(shown.cmdOK);
  });
  Texts calls;
  AddLinkCalls(
      calls, L"SELECT QRUSGP.USERID, QRUSGP.GROUPID FROM QRUSGP WHERE GROUPID = 9 and USERID = 11");
  AddLinkCalls(
      calls, L"SELECT QRUSGP.USERID, QRUSGP.GROUPID FROM QRUSGP WHERE GROUPID = 9 and USERID = 6");
  EXPECT_EQ(log.calls, calls);
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(GroupsInDatabase(kMartin), (Ids{2, 6, 7, 11, 12}));
  EXPECT_EQ(user.SeenBoxes().size(), 0U);
}

TEST_F(ListItemSave, ARowUnderTheSwappedIdsIsNeitherReadNorChanged) {
  // User 11 is in group 9: the very row that the statement for user 9 and group 11 finds.
  ASSERT_EQ(Raw().Number("select count(*) from qrusgp where userid = 11 and groupid = 9"), 1);
  const Ids before = GroupsInDatabase(11);
  PrepareGroupsOf(kMartin);
  ShowTicked({11}, [this](frmListItem& shown) { user.Click(shown.cmdOK); });
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(GroupsInDatabase(11), before);
  EXPECT_EQ(Raw().Number("select count(*) from qrusgp where userid = 9 and groupid = 11"), 1);
}

TEST_F(ListItemSave, PermissionsOfAUserAreReadAndAddedInTheOrderOfTheList) {
  PreparePermissionsOf(kMartin);
  ShowTicked({30, 1}, [this](frmListItem& shown) {
    EXPECT_EQ(log.calls, LoadCalls(allPermissions, L"101", PermissionNames(),
                                   L"SELECT QRUPRM.PERMID FROM QRUPRM WHERE QRUPRM.USERID = 9"));
    ClearLog();
    user.Click(shown.cmdOK);
  });
  Texts calls;
  AddLinkCalls(calls, L"SELECT * FROM QRUPRM WHERE QRUPRM.USERID = 9 and QRUPRM.PERMID = 30");
  AddLinkCalls(calls, L"SELECT * FROM QRUPRM WHERE QRUPRM.USERID = 9 and QRUPRM.PERMID = 1");
  EXPECT_EQ(log.calls, calls);
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(PermissionsInDatabase(kMartin), (Ids{1, 14, 20, 30}));
}

TEST_F(ListItemSave, PermissionsOfAGroupAreReadAndAddedInTheOrderOfTheList) {
  PreparePermissionsOfGroup(kLaboratory);
  ShowTicked({21, 3}, [this](frmListItem& shown) {
    EXPECT_EQ(log.calls, LoadCalls(allPermissions, L"101", PermissionNames(),
                                   L"SELECT QRGPRM.PERMID FROM QRGPRM WHERE QRGPRM.GROUPID = 12"));
    ClearLog();
    user.Click(shown.cmdOK);
  });
  Texts calls;
  AddLinkCalls(calls, L"SELECT * FROM QRGPRM WHERE QRGPRM.GROUPID = 12 and QRGPRM.PERMID = 21");
  AddLinkCalls(calls, L"SELECT * FROM QRGPRM WHERE QRGPRM.GROUPID = 12 and QRGPRM.PERMID = 3");
  EXPECT_EQ(log.calls, calls);
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(GroupPermissionsInDatabase(kLaboratory), (Ids{3, 20, 21}));
}

TEST_F(ListItemSave, AllOfThemAreAdded) {
  PreparePermissionsOf(kMartin);
  Show([this](frmListItem& shown) {
    user.Click(shown.cmdBtn[shown.kCheckAll]);
    user.Click(shown.cmdOK);
  });
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_EQ(PermissionsInDatabase(kMartin).size(), 30U);
}

TEST_F(ListItemSave, OkWithNothingTickedClosesWithoutAQuestionAndWithoutWriting) {
  exchange.AddNode = true;
  PrepareGroupsOf(kMartin);
  Show([this](frmListItem& shown) {
    ClearLog();
    user.Click(shown.cmdOK);
  });
  EXPECT_EQ(log.calls, Texts{});
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_EQ(user.SeenBoxes().size(), 0U);
}

TEST_F(ListItemSave, OkAfterTickingAndUntickingAsksNothingAndWritesNothing) {
  PrepareGroupsOf(kMartin);
  ShowTicked({6, 6}, [this](frmListItem& shown) {
    ClearLog();
    user.Click(shown.cmdOK);
  });
  EXPECT_EQ(log.calls, Texts{});
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_EQ(user.SeenBoxes().size(), 0U);
}

TEST_F(ListItemSave, WhatIsAddedIsGoneFromTheListTheNextTime) {
  PrepareGroupsOf(kMartin);
  ShowTicked({6}, [this](frmListItem& shown) { user.Click(shown.cmdOK); });
  Show([this](frmListItem& shown) {
    EXPECT_EQ(IdsOf(shown.List1), (Ids{9, 1, 4, 3, 11, 8, 5, 10}));
    user.Close(shown);
  });
}

TEST_F(ListItemSave, ALoadThatFailsAtAnyCallIsReportedUnderItsProcedureAndClosesTheDialog) {
  const auto failEverywhere = [this](std::size_t candidates) {
    for (std::size_t position = 0; position < candidates + 2; ++position) {
      ClearLog();
      FailAtPosition(position);
      ExpectReport(position == candidates + 1 ? L"SelectedListItem" : L"Form Load");
      dialog.ShowModal(window);
      EXPECT_TRUE(HasFailed());
      EXPECT_FALSE(dialog.IsLoaded());
      EXPECT_EQ(log.calls.size(), position + 1);
    }
    FailAtPosition(candidates + 2);
    Show([this](frmListItem& shown) { user.Close(shown); });
    EXPECT_FALSE(HasFailed());
  };
  PrepareGroupsOf(kMartin);
  failEverywhere(12);
  PreparePermissionsOf(kMartin);
  failEverywhere(30);
  PreparePermissionsOfGroup(kLaboratory);
  failEverywhere(30);
  EXPECT_FALSE(exchange.AddNode);
}

TEST_F(ListItemSave, ASaveThatFailsAtAnyCallIsReportedAndLeavesWhatWasWritten) {
  constexpr std::size_t kCallsOfALink = 3;
  const Ids ticked = {4, 6, 5};  // in the order of their names, in which they are written
  for (std::size_t position = 0; position < kCallsOfALink * ticked.size(); ++position) {
    Raw().Execute("delete from qrusgp where userid = 9 and groupid in (4, 5, 6)");
    exchange.AddNode = true;
    PrepareGroupsOf(kMartin);
    ShowTicked(ticked, [&](frmListItem& shown) {
      FailAtPosition(position);
      ExpectReport(L"UpdateData");
      user.Click(shown.cmdOK);
    });
    EXPECT_TRUE(HasFailed());
    log.FailAt = {};
    EXPECT_FALSE(exchange.AddNode);
    Ids groups{2, 7, 12};
    for (std::size_t i = 0; i < position / kCallsOfALink; ++i) groups.push_back(ticked[i]);
    std::sort(groups.begin(), groups.end());
    EXPECT_EQ(GroupsInDatabase(kMartin), groups);
  }
  PrepareGroupsOf(kMartin);
  Raw().Execute("delete from qrusgp where userid = 9 and groupid in (4, 5, 6)");
  ShowTicked(ticked, [&](frmListItem& shown) { user.Click(shown.cmdOK); });
  EXPECT_TRUE(exchange.AddNode);
}

TEST_F(ListItemSave, PermissionsFailAtAnyCallToo) {
  for (const bool ofUser : {true, false}) {
    for (std::size_t position = 0; position < 6; ++position) {
      Raw().Execute("delete from qruprm where userid = 9 and permid in (3, 4)");
      Raw().Execute("delete from qrgprm where groupid = 12 and permid in (3, 4)");
      Prepare(dialog, app::kPermissions, ofUser ? app::kUserPermissions : app::kGroupPermissions,
              ofUser ? kMartin : kLaboratory);
      ShowTicked({3, 4}, [&](frmListItem& shown) {
        FailAtPosition(position);
        ExpectReport(L"UpdateData");
        user.Click(shown.cmdOK);
      });
      EXPECT_TRUE(HasFailed());
      log.FailAt = {};
      EXPECT_FALSE(exchange.AddNode);
      Ids permissions;
      if (position >= 3) permissions.push_back(4);  // its name is the first of the two
      if (ofUser) permissions.push_back(Sample::kStock);
      permissions.push_back(Sample::kReadings);
      EXPECT_EQ(ofUser ? PermissionsInDatabase(kMartin) : GroupPermissionsInDatabase(kLaboratory),
                permissions);
    }
  }
}

TEST_F(ListItemSave, ALinkThatSomebodyElseHasAddedMeanwhileIsTheDatabasesError) {
  PrepareGroupsOf(kMartin);
  ShowTicked({3, 4, 5}, [this](frmListItem& shown) {
    Raw().Execute("insert into qrusgp values (9, 3)");
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .style = controls::kExclamation,
                       .title = L"Admin Utilisateurs"});
    user.Click(shown.cmdOK);
  });
  ASSERT_EQ(user.SeenBoxes().size(), 1U);
  EXPECT_TRUE(user.SeenBoxes()[0].prompt.starts_with(L"UpdateData Error ["));
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_EQ(GroupsInDatabase(kMartin), (Ids{2, 3, 4, 7, 12}));
}

// Under Wine the native list alone takes minutes for so many.
#ifndef _WIN32
TEST_F(ListItemSave, MoreThan32767TickedItemsOverflow) {
  constexpr int kMost = 32767;
  Raw().Execute(
      "with recursive n(i) as (select 1000 union all select i + 1 from n where i < 1000 + 32767)"
      " insert into qrperm (permid, name) select i, 'P' || i from n");
  Raw().Execute(
      "delete from qrperm where permid not in (select permid from qrgprm)"
      " and permid not in (select permid from qruprm) and permid < 1000");
  const auto count = Raw().Number("select count(*) from qrperm");
  PreparePermissionsOf(kMartin);
  Show([&](frmListItem& shown) {
    const int candidates = shown.List1.ListCount();
    ASSERT_EQ(candidates, count - 2);
    ASSERT_GT(candidates, kMost);
    for (int i = 0; i < kMost; ++i) shown.List1.SetSelected(i, true);
    EXPECT_EQ(user.SeenBoxes().size(), 0U);
    ExpectOverflow();
    shown.List1.SetSelected(kMost, true);
    ClearLog();
    ExpectOverflow();
    user.Click(shown.cmdOK);
  });
  EXPECT_EQ(log.calls, Texts{});
  EXPECT_FALSE(exchange.AddNode);
}
#endif

}  // namespace
}  // namespace dialogs
