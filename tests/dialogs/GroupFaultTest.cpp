#include <gtest/gtest.h>

#include <algorithm>

#include "GroupDialogs.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"

namespace dialogs {
namespace {

// Each call of a load or a save fails in turn; the calls are those of a run without a fault.
class GroupFaults : public GroupDialogs {
 protected:
  static bool Holds(const std::wstring& call, const std::wstring& piece) {
    return call.find(piece) != std::wstring::npos;
  }
  static int CountBefore(const Strings& calls, std::size_t end, const std::wstring& call) {
    return static_cast<int>(
        std::count(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(end), call));
  }
  void Reset() {
    auto raw = Raw();
    raw.Execute(
        "UPDATE QRGROUP SET NAME = 'Laboratoire', DESCR = 'Mesures et essais' "
        "WHERE GROUPID = 12");
    raw.Execute("DELETE FROM QRUSGP WHERE GROUPID = 12");
    raw.Execute("INSERT INTO QRUSGP (USERID, GROUPID) VALUES (9, 12), (34, 12), (38, 12)");
    raw.Execute("DELETE FROM QRGPRM WHERE GROUPID = 12");
    raw.Execute("INSERT INTO QRGPRM (GROUPID, PERMID) VALUES (12, 20)");
  }
  void FillIn(frmEditGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Essais");
    Toggle(dialog.List1[dialog.kPermissions], L"User administration");
  }
  // Members and permissions to be written as well.
  void FillIn(frmNewGroup& dialog, const std::wstring& name) {
    user.Type(dialog.txtGroupName, name);
    dialog.List1[dialog.kMembers].AddItem(L"Martin", 9);
    dialog.List1[dialog.kMembers].AddItem(L"Roux", 12);
    Toggle(dialog.List1[dialog.kPermissions], L"Consulter les commandes");
    Toggle(dialog.List1[dialog.kPermissions], L"Valider une commande");
  }
};

TEST_F(GroupFaults, AFailedLoadIsReportedByItsProcedureAndTheDialogDoesNotAppear) {
  Strings calls;
  Edit(12, [&](frmEditGroup& dialog) {
    calls = log.calls;
    dialog.Unload();
  });
  ASSERT_EQ(calls.size(), 36U);
  for (std::size_t position = 0; position < calls.size(); ++position) {
    SCOPED_TRACE(data::ToUtf8(calls[position]));
    const bool fills = position == 3 || position == 4;
    const bool selects = Holds(calls[position], L"QRGPRM");
    exchange.AddNode = true;
    FailAtPosition(position);
    ExpectReport(fills     ? L"List1AddItem"
                 : selects ? L"SelectListItem"
                           : L"Form Load",
                 calls[position]);
    frmEditGroup dialog(exchange);
    dialog.GroupID = 12;
    dialog.ShowModal(window);
    EXPECT_TRUE(HasFailed());
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_FALSE(exchange.AddNode);
  }
}

TEST_F(GroupFaults, AFailedLoadOfTheNewDialogIsReportedToo) {
  exchange.AddNode = true;
  FailAtPosition(0);
  ExpectReport(L"List1AddItem", data::SqlSelectAllPermissions());
  frmNewGroup dialog(exchange);
  dialog.ShowModal(window);
  EXPECT_FALSE(dialog.IsLoaded());
  EXPECT_FALSE(exchange.AddNode);
}

TEST_F(GroupFaults, AFailedEditIsReportedByItsStepAndKeepsWhatWasWrittenBefore) {
  Strings calls;
  Edit(12, [&](frmEditGroup& dialog) {
    FillIn(dialog);
    ClearLog();
    user.Click(dialog.cmdOK);
    calls = log.calls;
  });
  Start();
  ASSERT_EQ(calls.size(), 20U);
  const std::wstring row = data::SqlSelectGroup(12);
  const std::wstring members = data::SqlSelectGroupMemberships(12);
  const std::wstring permissions = data::SqlSelectGroupPermRows(12);
  for (std::size_t position = 0; position < calls.size(); ++position) {
    SCOPED_TRACE(data::ToUtf8(calls[position]));
    Reset();
    exchange.AddNode = true;
    const bool linksUsers = Holds(calls[position], L"QRUSGP");
    const bool linksPermissions = Holds(calls[position], L"QRGPRM");
    Edit(12, [&](frmEditGroup& dialog) {
      FillIn(dialog);
      FailAtPosition(position);
      ExpectReport(linksUsers         ? L"EditGroupUser"
                   : linksPermissions ? L"EditGroupPermissions"
                                      : L"EditGroup",
                   calls[position]);
      user.Click(dialog.cmdOK);
      EXPECT_TRUE(HasFailed());
      EXPECT_FALSE(dialog.IsLoaded());
    });
    log.FailAt = {};
    EXPECT_FALSE(exchange.AddNode);
    EXPECT_FALSE(exchange.accountGone);
    EXPECT_EQ(RowOf(12)[0],
              CountBefore(calls, position, L"Update " + row) > 0 ? "Essais" : "Laboratoire");
    const bool usersGone = CountBefore(calls, position, data::SqlDeleteGroupMemberships(12)) > 0;
    EXPECT_EQ(static_cast<int>(MembersOf(12).size()),
              usersGone ? CountBefore(calls, position, L"Update " + members) : 3);
    const bool permissionsGone =
        CountBefore(calls, position, data::SqlDeleteGroupPermissions(12)) > 0;
    EXPECT_EQ(static_cast<int>(PermissionsOf(12).size()),
              permissionsGone ? CountBefore(calls, position, L"Update " + permissions) : 1);
  }
}

TEST_F(GroupFaults, AFailedNewGroupIsReportedByItsStepAndKeepsWhatWasWrittenBefore) {
  Strings calls;
  New([&](frmNewGroup& dialog) {
    FillIn(dialog, L"Essais");
    ClearLog();
    user.Click(dialog.cmdOK);
    // The reserved test comes before the save and does not end the dialog.
    calls.assign(log.calls.begin() + 1, log.calls.end());
  });
  ASSERT_EQ(calls.size(), 16U);
  std::int32_t id = 13;
  for (std::size_t position = 0; position < calls.size(); ++position) {
    SCOPED_TRACE(data::ToUtf8(calls[position]));
    exchange.AddNode = true;
    exchange.GroupID = -1;
    if (position > 2) ++id;  // the counter has been asked by then
    std::wstring failing = calls[position];
    const std::size_t at = failing.rfind(L"13");
    if (at != std::wstring::npos) failing.replace(at, 2, data::Decimal(id));
    const bool linksUsers = Holds(failing, L"QRUSGP");
    const bool linksPermissions = Holds(failing, L"QRGPRM");
    New([&](frmNewGroup& dialog) {
      FillIn(dialog, L"Nouveau");
      FailAtPosition(position + 1);
      ExpectReport(linksUsers         ? L"NewUserGroups"
                   : linksPermissions ? L"NewGroupPermissions"
                                      : L"NewGroup",
                   failing);
      user.Click(dialog.cmdOK);
      EXPECT_TRUE(HasFailed());
      EXPECT_FALSE(dialog.IsLoaded());
    });
    log.FailAt = {};
    EXPECT_FALSE(exchange.AddNode);
    EXPECT_EQ(exchange.GroupID, -1);
    const bool written = CountBefore(calls, position, L"Update " + data::SqlSelectGroup(13)) > 0;
    EXPECT_EQ(Raw().Number("SELECT count(*) FROM QRGROUP WHERE NAME = 'Nouveau'"), written);
    if (position <= 2) continue;
    EXPECT_EQ(static_cast<int>(MembersOf(id).size()),
              CountBefore(calls, position, L"Update " + data::SqlSelectGroupMemberships(13)));
    EXPECT_EQ(static_cast<int>(PermissionsOf(id).size()),
              CountBefore(calls, position, L"Update " + data::SqlSelectGroupPermRows(13)));
    Raw().Execute("UPDATE QRGROUP SET NAME = 'Ancien' WHERE NAME = 'Nouveau'");
  }
}

TEST_F(GroupFaults, ALockedDatabaseIsReportedWithItsOwnMessageAndNothingIsWritten) {
  Database().SetLockWait(std::chrono::milliseconds(50));
  Start();
  Edit(12, [this](frmEditGroup& dialog) {
    user.Type(dialog.txtGroupName, L"Essais");
    auto writer = Raw();
    writer.Execute("BEGIN EXCLUSIVE");
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = L"EditGroup Error [-2147467259]\r\ndatabase is locked"});
    user.Click(dialog.cmdOK);
    writer.Execute("ROLLBACK");
    EXPECT_FALSE(dialog.IsLoaded());
  });
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_EQ(RowOf(12)[0], "Laboratoire");
}

}  // namespace
}  // namespace dialogs
