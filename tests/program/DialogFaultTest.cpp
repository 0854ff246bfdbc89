// What goes wrong outside the program while one of its dialogs is open.

#include <chrono>
#include <fstream>

#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/Paths.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Registration.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

constexpr long kDatabaseError = -2147467259;
constexpr long kAccessViolation = static_cast<long>(0xC0000005);
constexpr std::chrono::seconds kLocked{6};

class DialogFault : public ProgramTest {
 protected:
  static void Select(const MainWindow& window, Tab tab, const std::vector<std::wstring>& path) {
    driver::TreeView tree = window.Tree(tab);
    tree.Select(tree.Find(path).item);
  }

  // A session on a server that lives until Kill.
  std::wstring MortalSession() {
    const std::wstring session = SampleSession();
    std::ofstream(Box().Folder() / L"home" / L"alive") << "yes";
    registration_.PointTo(TestsFolder() / L"dying_server.dll");
    return session;
  }
  void Kill() { std::filesystem::remove(Box().Folder() / L"home" / L"alive"); }

  void AssignPurchasing(const MainWindow& window) {
    window.ClickOn(IDC_CMD_MEMBER_OF);
    const DialogWindow dialog(Program(), String(206) + String(308));
    dialog.Toggle(L"Qualité");
    dialog.ClickOn(IDC_OK);
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
  Select(window, kUsersTab, {L"Blanc", String(304)});
  Database other = Box().Database();
  {
    window.ClickOn(IDC_CMD_MEMBER_OF);
    const DialogWindow dialog(Program(), String(206) + String(308));
    dialog.Toggle(L"Qualité");
    other.Run(L"BEGIN EXCLUSIVE");
    const auto since = std::chrono::steady_clock::now();
    dialog.ClickOn(IDC_OK);
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

TEST_F(DialogFault, ASessionServerThatDiesBehindADialogIsReportedAndTheProgramCanBeLeft) {
  const MainWindow window = Open(MortalSession());
  window.ClickOn(IDC_CMD_USER + 2);
  const DialogWindow dialog(Program(), String(204));
  dialog.Type(L"Vidal");
  dialog.TabTo(IDC_TXT_PASSWORD);
  dialog.Type(L"secret-9");
  dialog.TabTo(IDC_TXT_VERIFY);
  dialog.Type(L"secret-9");
  const std::wstring before = Box().Database().Contents();
  Kill();
  dialog.Key(VK_RETURN);
  ExpectReport(Report(L"NewUser", kAccessViolation, String(424)));
  dialog.AwaitClosed();
  window.AwaitUsable();
  EXPECT_EQ(before, Box().Database().Contents());
  ExpectAccountsAsStored(window, kUsersTab);

  window.ClickOn(IDC_CMD_USER + 2);
  ExpectReport(Report(L"List1AddItem", kAccessViolation, String(424)));
  ExpectReport(Report(L"GetEveryOneGroup", kAccessViolation, String(424)));
  ExpectReport(Report(L"List1AddItem", kAccessViolation, String(424)));
  window.AwaitUsable();
  window.ClickOn(IDC_CMD_BTN + 1);
  ExpectExit(0);
}

}  // namespace
}  // namespace program
