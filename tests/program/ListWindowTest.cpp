// The windows that answer who has a permission, who is in a group, and what two users differ in.

#include "app/StringIds.h"
#include "resources/ResourceIds.h"
#include "tests/program/DialogWindow.h"
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

}  // namespace
}  // namespace program
