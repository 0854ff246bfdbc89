#include "UserDialogTest.h"

namespace dialogs {
namespace {

// The first so many of these, in ascending order.
test_support::Ids First(const test_support::Ids& ids, std::size_t count) {
  test_support::Ids first(ids.begin(),
                          ids.begin() + static_cast<std::ptrdiff_t>(std::min(count, ids.size())));
  std::sort(first.begin(), first.end());
  return first;
}

// How many rows a save has added when it fails at a position, counted from the statement that opens
// the set: AddNew and Update follow in turns.
std::size_t RowsBefore(std::size_t position) {
  return position == 0 ? 0 : (position - 1) / 2;
}

class UserDialogFault : public UserDialogTest {
 protected:
  void SaveMartinAsMartineau() {
    Edit(kMartin, [this](frmEditUser& dialog) {
      Fill(dialog, L"Martineau", L"Jean Martineau", L"secret-1");
      Toggle(dialog.List1[dialog.kGroups], L"Direction");
      Toggle(dialog.List1[dialog.kPermissions], L"Audit des sessions");
      BeginSave();
      user.Click(dialog.cmdOK);
      EXPECT_FALSE(dialog.IsLoaded());
    });
  }
  void SaveNouveau() {
    New([this](frmNewUser& dialog) {
      Fill(dialog, L"Nouveau", L"", L"secret-1");
      Toggle(dialog.List1[dialog.kGroups], L"Production");
      Toggle(dialog.List1[dialog.kPermissions], L"Consulter le stock");
      Toggle(dialog.List1[dialog.kPermissions], L"Saisir un relevé de contrôle");
      BeginSave();
      user.Click(dialog.cmdOK);
      EXPECT_FALSE(dialog.IsLoaded());
    });
  }
  // What a test does between the last change and OK.
  std::function<void()> BeginSave = [] {};

  void RestoreMartin() {
    Raw().Execute("UPDATE QRUSER SET NAME = 'Martin' WHERE USERID = 9");
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID = 9");
    Raw().Execute("DELETE FROM QRUPRM WHERE USERID = 9");
    Raw().Execute("INSERT INTO QRUSGP VALUES (9, 2), (9, 7), (9, 12)");
    Raw().Execute("INSERT INTO QRUPRM VALUES (9, 14), (9, 20)");
  }
  void ForgetNouveau() {
    Raw().Execute("DELETE FROM QRUSER WHERE USERID > 40");
    Raw().Execute("DELETE FROM QRUSGP WHERE USERID > 40");
    Raw().Execute("DELETE FROM QRUPRM WHERE USERID > 40");
  }
};

TEST_F(UserDialogFault, AFailureAtAnyCallOfAnEditsSaveIsReportedAndWhatWasWrittenStays) {
  // 4 calls for the row, 1 + 1 + 2 * 4 for the groups, 1 + 1 + 2 * 3 for the permissions.
  constexpr std::size_t kCalls = 22;
  const Ids groups{3, 2, 12, 7};  // in the order of their names, as the permissions
  const Ids permissions{14, 20, 30};
  for (std::size_t position = 0; position <= kCalls; ++position) {
    SCOPED_TRACE(position);
    RestoreMartin();
    exchange.AddNode = true;
    BeginSave = [&] { FailAtPosition(position); };
    const bool fails = position < kCalls;
    const std::wstring procedure = position < 4    ? L"EditUser"
                                   : position < 14 ? L"EditUserGroups"
                                                   : L"EditUserPermissions";
    if (fails) ExpectReport(procedure);
    SaveMartinAsMartineau();
    if (fails) {
      EXPECT_EQ(user.SeenBoxes().back().prompt, ReportOf(procedure));
    }
    EXPECT_EQ(HasFailed(), fails);
    EXPECT_EQ(exchange.AddNode, !fails);
    EXPECT_FALSE(exchange.accountGone);
    EXPECT_EQ(Column(9, "NAME"), position < 4 ? "Martin" : "Martineau");
    EXPECT_EQ(Groups(9), position < 5 ? (Ids{2, 7, 12}) : First(groups, RowsBefore(position - 5)));
    EXPECT_EQ(Permissions(9),
              position < 15 ? (Ids{14, 20}) : First(permissions, RowsBefore(position - 15)));
    log.FailAt = {};
  }
}

TEST_F(UserDialogFault, AFailureAtAnyCallOfANewUsersSaveIsReportedAndWhatWasWrittenStays) {
  // 5 calls for the row, 1 + 2 * 2 for the groups, 1 + 2 * 2 for the permissions.
  constexpr std::size_t kCalls = 15;
  const Ids groups{2, 7};
  const Ids permissions{14, 20};
  for (std::size_t position = 0; position <= kCalls; ++position) {
    SCOPED_TRACE(position);
    ForgetNouveau();
    exchange.AddNode = true;
    exchange.UserID = -1;
    BeginSave = [&] { FailAtPosition(position); };
    const bool fails = position < kCalls;
    const std::wstring procedure = position < 5    ? L"NewUser"
                                   : position < 10 ? L"NewUserGroups"
                                                   : L"NewUserPermissions";
    if (fails) ExpectReport(procedure);
    SaveNouveau();
    if (fails) {
      EXPECT_EQ(user.SeenBoxes().back().prompt, ReportOf(procedure));
    }
    EXPECT_EQ(HasFailed(), fails);
    EXPECT_EQ(exchange.AddNode, !fails);
    const auto rows = Raw().Rows("SELECT USERID FROM QRUSER WHERE NAME = 'Nouveau'");
    ASSERT_EQ(rows.size(), position < 5 ? 0U : 1U);
    if (!rows.empty()) {
      const std::int32_t id = std::stoi(rows[0][0]);
      EXPECT_EQ(exchange.UserID, fails ? -1 : id);
      EXPECT_EQ(Groups(id), First(groups, RowsBefore(position - 5)));
      EXPECT_EQ(Permissions(id),
                position < 10 ? Ids{} : First(permissions, RowsBefore(position - 10)));
    }
    log.FailAt = {};
  }
}

TEST_F(UserDialogFault, TheReportTellsProcedureNumberAndText) {
  BeginSave = [this] { FailAt(data::SqlDeleteUserMemberships(9)); };
  ExpectReport(L"EditUserGroups", data::SqlDeleteUserMemberships(9));
  SaveMartinAsMartineau();
}

TEST_F(UserDialogFault, AUserDeletedWhileTheDialogWasOpenIsGoneAndNothingIsWritten) {
  BeginSave = [this] {
    Raw().Execute("UPDATE QRUSER SET NAME = 'Martin(9)', VFLG = 'D' WHERE USERID = 9");
    ClearLog();
  };
  exchange.AddNode = true;
  SaveMartinAsMartineau();
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_TRUE(exchange.accountGone);
  EXPECT_EQ(log.calls, (Calls{L"MoveFirst " + data::SqlSelectUser(9)}));
  EXPECT_EQ(Column(9, "NAME"), "Martin(9)");
  EXPECT_EQ(Groups(9), (Ids{2, 7, 12}));
  EXPECT_EQ(Permissions(9), (Ids{14, 20}));
}

TEST_F(UserDialogFault, AUserDeletedBeforeTheDialogOpensIsNotShown) {
  Raw().Execute("UPDATE QRUSER SET NAME = 'Martin(9)', VFLG = 'D' WHERE USERID = 9");
  dialogs::frmEditUser dialog(exchange);
  dialog.UserID = 9;
  dialog.ShowModal(window);
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_TRUE(exchange.accountGone);
}

TEST_F(UserDialogFault, AUserDeletedAtTheLastMomentIsReportedAndGone) {
  BeginSave = [this] {
    log.FailAt = [this](const std::wstring& call) {
      if (call.starts_with(L"Update ")) {
        Raw().Execute("UPDATE QRUSER SET NAME = 'Martin(9)', VFLG = 'D' WHERE USERID = 9");
      }
      return 0L;
    };
  };
  user.ExpectMsgBox(
      {.answer = controls::kResultOk,
       .prompt = data::FromUtf8("EditUser Error [-2147220969]\r\nLa ligne a été modifiée ou "
                                "supprimée par quelqu'un d'autre."),
       .style = controls::kExclamation,
       .title = L"Admin Utilisateurs"});
  SaveMartinAsMartineau();
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_TRUE(exchange.accountGone);
  EXPECT_EQ(Column(9, "NAME"), "Martin(9)");
}

TEST_F(UserDialogFault, AUserGoneOnceIsNotGoneForTheNextEdit) {
  exchange.accountGone = true;
  SaveMartinAsMartineau();
  EXPECT_TRUE(exchange.AddNode);
  EXPECT_FALSE(exchange.accountGone);
}

TEST_F(UserDialogFault, ALockedDatabaseIsReportedWithItsMessageAndTheNextSaveWorks) {
  Stop();
  Database().SetLockWait(std::chrono::milliseconds(50));
  Start();
  test_support::RawDatabase other = Raw();
  BeginSave = [&] { other.Execute("BEGIN IMMEDIATE"); };
  user.ExpectMsgBox({.answer = controls::kResultOk,
                     .prompt = L"EditUser Error [-2147467259]\r\ndatabase is locked",
                     .style = controls::kExclamation});
  SaveMartinAsMartineau();
  EXPECT_FALSE(exchange.AddNode);
  EXPECT_FALSE(exchange.accountGone);
  other.Execute("COMMIT");
  BeginSave = [] {};
  SaveMartinAsMartineau();
  EXPECT_TRUE(exchange.AddNode);
}

}  // namespace
}  // namespace dialogs
