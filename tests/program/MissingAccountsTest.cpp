// Databases without the accounts that the program looks for.

#include "data/Text.h"
#include "tests/program/Outline.h"
#include "tests/program/ProgramTest.h"

namespace program {
namespace {

class MissingAccounts : public ProgramTest {
 protected:
  // A session of another administrator on the sample, changed by a statement.
  std::wstring SessionAfter(const std::wstring& statement) {
    Box().CreateDatabase();
    Box().FillSample();
    Box().AddAdministrator(L"Suppleant");
    const std::wstring session = Box().OpenSession(L"Suppleant");
    Box().Database().Run(statement);
    return session;
  }

  void ExpectToRun(const std::wstring& session) {
    const MainWindow window = Open(session);
    Database database = Box().Database();
    driver::TreeView users = window.Tree(kUsersTab);
    EXPECT_EQ(Print(ExpectedUsers(database)), Print(ReadOutline(users)));
    driver::TreeView groups = window.Tree(kGroupsTab);
    EXPECT_EQ(Print(ExpectedGroups(database)), Print(ReadOutline(groups)));
    window.Form().Post(WM_CLOSE);
    ExpectExit(0);
  }
};

TEST_F(MissingAccounts, WithoutAdminTheProgramRuns) {
  ExpectToRun(SessionAfter(L"UPDATE QRUSER SET NAME = 'Chef' WHERE NAME = 'Admin'"));
}

TEST_F(MissingAccounts, WithoutAdministratorsTheProgramRuns) {
  ExpectToRun(SessionAfter(L"UPDATE QRGROUP SET NAME = 'Chefs' WHERE NAME = 'Administrators'"));
}

TEST_F(MissingAccounts, WithoutEveryoneTheProgramRuns) {
  ExpectToRun(SessionAfter(L"UPDATE QRGROUP SET NAME = 'Tous' WHERE NAME = 'Everyone'"));
}

TEST_F(MissingAccounts, WithoutAnyGroupOrLinkTheProgramRuns) {
  ExpectToRun(SessionAfter(
      L"INSERT OR IGNORE INTO QRUPRM SELECT QRUSER.USERID, QRPERM.PERMID FROM QRUSER, QRPERM"
      L" WHERE QRUSER.NAME = 'Suppleant'; DELETE FROM QRUSGP; DELETE FROM QRGPRM;"
      L"DELETE FROM QRGROUP"));
}

}  // namespace
}  // namespace program
