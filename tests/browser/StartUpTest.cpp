#include <gtest/gtest.h>

#include <limits>

#include "app/StringIds.h"
#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "data/Text.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {
namespace {

using controls::kResultOk;
using test_support::CallLog;
using Strings = std::vector<std::wstring>;

class StartUp : public test_support::MainWindowFixture {
 protected:
  static constexpr long kInjected = 1234;

  // The report that an injected failure of a call must bring up.
  void ExpectReport(const std::wstring& procedure, const std::wstring& call) {
    user.ExpectMsgBox({.answer = kResultOk,
                       .prompt = procedure + L" Error [1234]\r\ninjected: " + call,
                       .style = controls::kExclamation,
                       .title = L"Admin Utilisateurs"});
  }
  // While this statement runs, and only then, a view stands in for the table, which it knows as
  // KEPT.
  void ReplaceTable(const std::string& table, const std::string& view,
                    const std::function<std::wstring()>& statement) {
    log.FailAt = [=, this, replaced = false](const std::wstring& call) mutable {
      if (call == statement()) {
        Raw().Execute("ALTER TABLE " + table + " RENAME TO KEPT");
        Raw().Execute("CREATE VIEW " + table + " AS " + view);
        replaced = true;
      } else if (replaced) {
        Raw().Execute("DROP VIEW " + table);
        Raw().Execute("ALTER TABLE KEPT RENAME TO " + table);
        replaced = false;
      }
      return 0L;
    };
  }
  // Runs the program, letting one of the steps fail that result sets take while the condition
  // holds, 0 being the first; without that many none. Returns how many there were.
  std::size_t RunFailingInside(std::size_t failing, const std::function<bool()>& counts,
                               const WindowScript& script = {}) {
    global.startUpFailed = false;
    log.statements.clear();
    failedStep_.clear();
    std::size_t steps = 0;
    log.FailInside = [&](const std::wstring& step) {
      if (!counts() || steps++ != failing) return 0L;
      failedStep_ = step;
      return kInjected;
    };
    Run(script);
    log.FailInside = {};
    return steps;
  }
  std::wstring ReportOf(const std::wstring& procedure) const {
    return procedure + L" Error [1234]\r\ninjected: " + failedStep_;
  }

  void FailAt(const std::wstring& call) {
    log.FailAt = [call](const std::wstring& current) { return current == call ? kInjected : 0; };
  }

  std::wstring failedStep_;
};

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

TEST_F(StartUp, TheServerIsAskedInAFixedOrderAndTheLookupsComeBeforeTheTrees) {
  Run([](frmUserGroupPerm&) {});
  const Strings calls(log.serverCalls.begin(), log.serverCalls.begin() + 6);
  EXPECT_EQ(calls, (Strings{L"ReadCommandLine", L"OpenSession", L"GetRights", L"SetMode 1",
                            L"GetSessionUserText", L"DatabaseConnection"}));
  ASSERT_GT(log.statements.size(), 6U);
  EXPECT_EQ(log.statements[0], data::SqlSelectSessionUser(global.sessionId));
  EXPECT_EQ(log.statements[1], data::SqlSelectAdminUser());
  EXPECT_EQ(log.statements[2], data::SqlSelectProtectedGroups());
  EXPECT_EQ(log.statements[3], L"BeginRead");
  EXPECT_EQ(log.statements[4], data::SqlSelectAllUsers());
  EXPECT_EQ(log.statements[log.statements.size() - 2], L"EndRead");
  EXPECT_EQ(log.statements.back(), data::SqlSelectAllPermissions());
}

TEST_F(StartUp, TheSessionAndTheProtectedAccountsAreKept) {
  Run(
      [this](frmUserGroupPerm& window) {
        EXPECT_EQ(window.accounts.currentUserId, 2);
        EXPECT_EQ(window.accounts.adminUserId, 1);
        EXPECT_EQ(window.accounts.administratorsGroupId, 1);
        EXPECT_EQ(window.accounts.everyoneGroupId, 2);
        EXPECT_TRUE(window.isStarted);
        EXPECT_EQ(global.sessionRights & 4, 4);
        EXPECT_EQ(global.sessionUserText, L"Moreau (Delphine Moreau)");
        EXPECT_EQ(global.helpFile, L"C:\\Program Files\\User Administration\\ORMEX.chm");
      },
      L"Moreau");
  EXPECT_FALSE(global.startUpFailed);
}

TEST_F(StartUp, ARightsMaskWithoutTheValue4IsRefusedWordForWordAndNothingElseHappens) {
  log.rights = 3;
  user.ExpectMsgBox(
      {.answer = kResultOk,
       .prompt = data::FromUtf8("Permission Admin Utilisateurs requise pour modifier,\r\n"
                                "créer ou supprimer une permission de groupe ou d'utilisateur."),
       .style = controls::kExclamation,
       .title = L"Admin Utilisateurs"});
  Run();
  EXPECT_EQ(log.serverCalls, (Strings{L"ReadCommandLine", L"OpenSession", L"GetRights"}));
  EXPECT_TRUE(log.statements.empty());
  EXPECT_FALSE(global.startUpFailed);
  EXPECT_EQ(global.SessionServer, nullptr);
}

TEST_F(StartUp, ARightsMaskOf4Or7Passes) {
  for (const int mask : {4, 7}) {
    log.rights = mask;
    bool started = false;
    Run([&](frmUserGroupPerm& window) { started = window.isStarted; });
    EXPECT_TRUE(started) << mask;
  }
}

TEST_F(StartUp, ASessionWithoutARowLeavesTheCurrentUserAt0) {
  log.FailAt = [this](const std::wstring& call) {
    if (call == data::SqlSelectSessionUser(global.sessionId)) Raw().Execute("DELETE FROM QRAUSR");
    return 0L;
  };
  Run([](frmUserGroupPerm& window) { EXPECT_EQ(window.accounts.currentUserId, 0); });
}

TEST_F(StartUp, MissingProtectedAccountsLeaveTheirIdentifiersAt0AndTheProgramRuns) {
  Raw().Execute("UPDATE QRUSER SET NAME = 'Root' WHERE NAME = 'Admin'");
  Raw().Execute("UPDATE QRGROUP SET NAME = 'Chefs' WHERE NAME = 'Administrators'");
  Run(
      [](frmUserGroupPerm& window) {
        EXPECT_EQ(window.accounts.adminUserId, 0);
        EXPECT_EQ(window.accounts.administratorsGroupId, 0);
        EXPECT_EQ(window.accounts.everyoneGroupId, 2);
        EXPECT_TRUE(window.isStarted);
      },
      L"Moreau");
}

TEST_F(StartUp, OfSeveralRowsTheLastGivesTheIdentifier) {
  Raw().Execute("INSERT INTO QRUSER (USERID, NAME) VALUES (500, 'Admin')");
  Raw().Execute("INSERT INTO QRGROUP (GROUPID, NAME) VALUES (500, 'Everyone')");
  Raw().Execute("INSERT INTO QRGROUP (GROUPID, NAME) VALUES (501, 'Administrators')");
  ReplaceTable("QRAUSR", "SELECT USERID, SESID FROM KEPT UNION ALL SELECT 9, SESID FROM KEPT",
               [this] { return data::SqlSelectSessionUser(global.sessionId); });
  Run([](frmUserGroupPerm& window) {
    EXPECT_EQ(window.accounts.currentUserId, 9);
    EXPECT_EQ(window.accounts.adminUserId, 500);
    EXPECT_EQ(window.accounts.everyoneGroupId, 500);
    EXPECT_EQ(window.accounts.administratorsGroupId, 501);
  });
}

// A column of fixed width, which compares without its trailing blanks and gives them.
TEST_F(StartUp, AProtectedGroupIsRecognisedWithoutTheBlanksAroundItsName) {
  ReplaceTable("QRGROUP",
               "SELECT GROUPID, (NAME || '   ') COLLATE RTRIM AS NAME, DESCR, VFLG FROM KEPT",
               [] { return data::SqlSelectProtectedGroups(); });
  Run([](frmUserGroupPerm& window) {
    EXPECT_EQ(window.accounts.administratorsGroupId, 1);
    EXPECT_EQ(window.accounts.everyoneGroupId, 2);
  });
}

TEST_F(StartUp, AProtectedGroupIsRecognisedByItsExactNameAlone) {
  Raw().Execute("UPDATE QRGROUP SET NAME = 'everyone' WHERE NAME = 'Everyone'");
  Run([](frmUserGroupPerm& window) { EXPECT_EQ(window.accounts.everyoneGroupId, 0); });
}

TEST_F(StartUp, AFailingServerCallIsReportedAsFormLoadAndEndsTheStartUp) {
  for (const wchar_t* call : {L"ReadCommandLine", L"OpenSession", L"GetRights", L"SetMode 1",
                              L"GetSessionUserText", L"DatabaseConnection"}) {
    SCOPED_TRACE(data::ToUtf8(call));
    global.startUpFailed = false;
    FailAt(call);
    ExpectReport(L"Form Load", call);
    Run();
    EXPECT_TRUE(global.startUpFailed);
    EXPECT_EQ(log.serverCalls.back(), call);
    EXPECT_TRUE(log.statements.empty());
    EXPECT_EQ(global.SessionServer, nullptr);
  }
}

TEST_F(StartUp, AServerThatCannotBeMadeIsReportedWithTheTextOfItsError) {
  global.CreateSessionServer = []() -> std::unique_ptr<data::SessionServer> {
    throw data::RunTimeError(data::kCannotCreateObject);
  };
  user.ExpectMsgBox(
      {.answer = kResultOk,
       .prompt = L"Form Load Error [429]\r\n" + TextOfError(data::kCannotCreateObject)});
  Run();
  EXPECT_TRUE(global.startUpFailed);
}

TEST_F(StartUp, AFailingLookupIsReportedUnderItsOwnNameAndTheProgramDoesNotGoOnUnprotected) {
  const std::pair<std::wstring, std::function<std::wstring()>> lookups[] = {
      {L"GetCurrentUser", [this] { return data::SqlSelectSessionUser(global.sessionId); }},
      {L"GetAdminUser", [] { return data::SqlSelectAdminUser(); }},
      {L"GetAdministratorsAndEveryoneGroup", [] { return data::SqlSelectProtectedGroups(); }},
  };
  for (const auto& [procedure, statement] : lookups) {
    SCOPED_TRACE(data::ToUtf8(procedure));
    global.startUpFailed = false;
    log.statements.clear();
    log.FailAt = [make = statement](const std::wstring& call) {
      return call == make() ? kInjected : 0;
    };
    user.ExpectMsgBox({.answer = kResultOk, .style = controls::kExclamation});
    Run();
    EXPECT_EQ(user.SeenBoxes().back().prompt,
              procedure + L" Error [1234]\r\ninjected: " + log.statements.back());
    EXPECT_TRUE(global.startUpFailed);
  }
}

TEST_F(StartUp, AFaultAtAnyStepOfALookupsRowsIsReportedUnderItsNameAndEndsTheStartUp) {
  const wchar_t* const procedures[] = {L"GetCurrentUser", L"GetAdminUser",
                                       L"GetAdministratorsAndEveryoneGroup"};
  const auto looksUp = [&] { return log.statements.size() <= std::size(procedures); };
  const std::size_t steps = RunFailingInside(kNever, looksUp, [](frmUserGroupPerm&) {});
  ASSERT_GT(steps, 12U);  // the end, a column, the next row and closing, for each
  for (std::size_t step = 0; step < steps; ++step) {
    SCOPED_TRACE(step);
    user.ExpectMsgBox({.answer = kResultOk, .style = controls::kExclamation});
    RunFailingInside(step, looksUp);
    ASSERT_LE(log.statements.size(), std::size(procedures)) << "the start-up went on";
    EXPECT_EQ(user.SeenBoxes().back().prompt, ReportOf(procedures[log.statements.size() - 1]));
    EXPECT_TRUE(global.startUpFailed);
  }
}

TEST_F(StartUp, AFaultWithinThePermissionsIsReportedAndTheProgramRuns) {
  const auto isCounting = [this] {
    return log.statements.back() == data::SqlSelectAllPermissions();
  };
  const auto isRunning = [](frmUserGroupPerm& window) { EXPECT_TRUE(window.isStarted); };
  const std::size_t steps = RunFailingInside(kNever, isCounting, isRunning);
  ASSERT_GT(steps, 30U);
  for (const std::size_t step : {std::size_t{0}, std::size_t{1}, steps - 2, steps - 1}) {
    SCOPED_TRACE(step);
    user.ExpectMsgBox({.answer = kResultOk, .style = controls::kExclamation});
    RunFailingInside(step, isCounting, isRunning);
    EXPECT_EQ(user.SeenBoxes().back().prompt, ReportOf(L"GetCountPerm"));
    EXPECT_FALSE(global.startUpFailed);
  }
}

TEST_F(StartUp, ATreeThatCannotBeReadIsReportedOnceAndEndsTheStartUp) {
  const std::pair<const wchar_t*, std::wstring> failures[] = {
      {L"RefreshTree", L"BeginRead"},
      {L"UserNode", data::SqlSelectAllUsers()},
      {L"UserNode", data::SqlSelectUserGroups(9)},
      {L"UserNode", data::SqlSelectUserPermissionNames(9)},
      {L"UserNode", data::SqlSelectInheritedPermissions(9)},
      {L"UserNode", L"GetDisplayName 104 Laboratoire"},
      {L"GroupNode", data::SqlSelectAllGroups()},
      {L"GroupNode", data::SqlSelectGroupUsers(6)},
      {L"GroupNode", data::SqlSelectGroupPermissionNames(6)},
  };
  for (const auto& [procedure, call] : failures) {
    SCOPED_TRACE(data::ToUtf8(call));
    global.startUpFailed = false;
    FailAt(call);
    ExpectReport(procedure, call);
    Run();
    EXPECT_TRUE(global.startUpFailed);
  }
}

TEST_F(StartUp, PermissionsThatCannotBeCountedAreReportedAndTheProgramRuns) {
  FailAt(data::SqlSelectAllPermissions());
  ExpectReport(L"GetCountPerm", data::SqlSelectAllPermissions());
  Run([](frmUserGroupPerm& window) { EXPECT_TRUE(window.isStarted); });
  EXPECT_FALSE(global.startUpFailed);
}

TEST_F(StartUp, ClosingTheWindowReleasesTheConnectionAndTheServer) {
  Run([this](frmUserGroupPerm& window) {
    ASSERT_NE(global.databaseConnection, nullptr);
    user.Click(window.cmdBtn[kExitButton]);
    EXPECT_FALSE(window.IsLoaded());
    EXPECT_EQ(global.databaseConnection, nullptr);
    EXPECT_EQ(global.SessionServer, nullptr);
  });
}

TEST_F(StartUp, NothingIsWrittenToTheDatabase) {
  Run([](frmUserGroupPerm&) {});
  for (const std::wstring& statement : log.statements) {
    EXPECT_TRUE(statement.starts_with(L"SELECT") || statement.ends_with(L"Read"))
        << data::ToUtf8(statement);
  }
}

}  // namespace
}  // namespace browser
