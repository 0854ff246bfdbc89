// The windows that answer who has a permission, who is in a group, what two users differ in, and
// what was changed.

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/JournalFolder.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Clipboard.h"
#include "tests/program/driver/Wait.h"

namespace program {
namespace {

class ListWindows : public ProgramTest {
 protected:
  // Those who may see the stock, by the key.
  DialogWindow AskWhoHasIt(const MainWindow& window) {
    window.Select(kUsersTab, {kMartin, String(app::kAllPermissions), L"Consulter le stock"});
    window.Key('Q', {VK_CONTROL});
    return DialogWindow(Program(), String(app::kHoldersTitle));
  }
  int HoldersInTheDatabase() {
    return Box().Database().Number(
        L"SELECT COUNT(*) FROM QRUSERV WHERE USERID IN (SELECT USERID FROM QRUPRM WHERE PERMID = "
        L"(SELECT"
        L" PERMID FROM QRPERM WHERE NAME = 'Consulter le stock') UNION SELECT USERID FROM QRUSGPV "
        L"WHERE"
        L" GROUPID IN (SELECT GROUPID FROM QRGPRM WHERE PERMID = (SELECT PERMID FROM QRPERM WHERE "
        L"NAME ="
        L" 'Consulter le stock')))");
  }
};

TEST_F(ListWindows, TellWhoHasAPermissionAndLeadToHim) {
  const MainWindow window = Open(SampleSession());
  const DialogWindow list = AskWhoHasIt(window);
  EXPECT_EQ(list.Checks(IDC_LIST_ROWS).Count(), HoldersInTheDatabase());
  list.AwaitFocus(IDC_TXT_FILTER);
  list.Type(L"jean martin");
  driver::Await("one row", [&] { return list.Checks(IDC_LIST_ROWS).Count() == 1; });
  list.Key(VK_RETURN);
  list.AwaitClosed();
  window.AwaitUsable();
  EXPECT_EQ(kMartin, window.Tree(kUsersTab).Selected().text);
}

TEST_F(ListWindows, CopyWhatTheyShow) {
  const MainWindow window = Open(SampleSession());
  const DialogWindow list = AskWhoHasIt(window);
  list.AwaitFocus(IDC_TXT_FILTER);
  list.Type(L"jean martin");
  driver::Await("one row", [&] { return list.Checks(IDC_LIST_ROWS).Count() == 1; });
  list.Key(VK_DOWN);
  list.AwaitFocus(IDC_LIST_ROWS);
  driver::ClearClipboard();
  list.Key('C', {VK_CONTROL});
  driver::Await("the copy", [] { return !driver::ClipboardText().empty(); });
  EXPECT_NE(driver::ClipboardText().find(L"Martin\t"), std::wstring::npos);
  list.Key(VK_ESCAPE);
  list.AwaitClosed();
}

TEST_F(ListWindows, ShowWhatTheProgramHasChanged) {
  const JournalFolder kept(Box().Folder() / L"journal");
  const MainWindow window = Open(SampleSession());
  window.Select(kUsersTab, {kMartin, String(app::kUserPermissions), L"Consulter le stock"});
  window.Key(VK_DELETE);
  ExpectQuestion(String(app::kAskRemoveUserPermission), IDYES);
  window.AwaitUsable();
  window.Key('J', {VK_CONTROL});
  const DialogWindow journal(Program(), String(app::kJournalTitle));
  driver::ListView rows = journal.Checks(IDC_LIST_ROWS);
  ASSERT_EQ(rows.Count(), 1);
  EXPECT_EQ(rows.Text(0, 2), L"Permission Consulter le stock retirée à Martin");
  EXPECT_EQ(rows.Text(0, 3), L"Martin");
  EXPECT_EQ(rows.Text(0, 4), L"1");
  EXPECT_TRUE(rows.Text(0, 1).starts_with(L"Admin"));
  // The date as the user writes it has the year in it, whatever its order.
  SYSTEMTIME now = {};
  GetLocalTime(&now);
  EXPECT_NE(rows.Text(0, 0).find(std::to_wstring(now.wYear)), std::wstring::npos)
      << data::ToUtf8(rows.Text(0, 0));
  journal.Key(VK_ESCAPE);
  journal.AwaitClosed();
}

}  // namespace
}  // namespace program
