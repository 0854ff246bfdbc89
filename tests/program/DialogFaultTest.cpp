// What goes wrong outside the program while one of its dialogs is open.

#include <chrono>
#include <fstream>

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/Paths.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Registration.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

constexpr std::chrono::seconds kLocked{6};

class DialogFault : public ProgramTest {
 protected:
  // A session on a server that lives until Kill.
  std::wstring MortalSession() {
    const std::wstring session = SampleSession();
    std::ofstream(Box().Folder() / L"home" / L"alive") << "yes";
    registration_.PointTo(TestsFolder() / L"dying_server.dll");
    return session;
  }
  void Kill() { std::filesystem::remove(Box().Folder() / L"home" / L"alive"); }

  void AssignPurchasing(const MainWindow& window) {
    window.Click(kAssignGroupsButton);
    const DialogWindow dialog(Program(), String(app::kChoicesTitle) + String(app::kGroups));
    dialog.Toggle(L"Qualité");
    dialog.Click(IDC_OK);
  }

  int QualityLinks() {
    return Box().Database().Number(
        L"SELECT COUNT(*) FROM QRUSGP WHERE USERID = 20 AND GROUPID = 6");
  }

 private:
  Registration registration_;
};

TEST_F(DialogFault, ADatabaseLockedForSixSecondsIsReportedOnOkAndTheProgramGoesOn) {
  const MainWindow window = Open(SampleSession());
  window.Select(kUsersTab, {L"Blanc", String(app::kMemberOf)});
  Database other = Box().Database();
  {
    window.Click(kAssignGroupsButton);
    const DialogWindow dialog(Program(), String(app::kChoicesTitle) + String(app::kGroups));
    dialog.Toggle(L"Qualité");
    other.Run(L"BEGIN EXCLUSIVE");
    const auto since = std::chrono::steady_clock::now();
    dialog.Click(IDC_OK);
    ExpectReport(Report(L"UpdateData", kDatabaseError, L"database is locked"));
    driver::WaitUntil([&] { return std::chrono::steady_clock::now() - since >= kLocked; });
    other.Run(L"COMMIT");
    dialog.AwaitClosed();
  }
  window.AwaitUsable();
  EXPECT_EQ(0, QualityLinks());
  ExpectAccountAsStored(window, kUsersTab, L"Blanc");
  AssignPurchasing(window);
  window.AwaitUsable();
  EXPECT_EQ(1, QualityLinks());
  ExpectAccountAsStored(window, kUsersTab, L"Blanc");
}

TEST_F(DialogFault, ASessionServerThatDiesUnderADialogIsReportedAndTheProgramCanBeLeft) {
  const MainWindow window = Open(MortalSession());
  window.Click(kNewUserButton);
  const DialogWindow dialog(Program(), String(app::kNewUserTitle));
  dialog.Type(L"Vidal");
  dialog.TabTo(IDC_TXT_PASSWORD);
  dialog.Type(L"secret-9");
  dialog.TabTo(IDC_TXT_VERIFY);
  dialog.Type(L"secret-9");
  const std::wstring before = Box().Database().Contents();
  Kill();
  dialog.Key(VK_RETURN);
  ExpectReport(Report(L"NewUser", kAccessViolation, String(app::kServerLost)));
  dialog.AwaitClosed();
  window.AwaitUsable();
  EXPECT_EQ(before, Box().Database().Contents());
  ExpectAccountsAsStored(window, kUsersTab);

  window.Click(kNewUserButton);
  ExpectReport(Report(L"List1AddItem", kAccessViolation, String(app::kServerLost)));
  ExpectReport(Report(L"GetEveryOneGroup", kAccessViolation, String(app::kServerLost)));
  ExpectReport(Report(L"List1AddItem", kAccessViolation, String(app::kServerLost)));
  window.AwaitUsable();
  window.Click(kExitButton);
  ExpectExit(0);
}

}  // namespace
}  // namespace program
