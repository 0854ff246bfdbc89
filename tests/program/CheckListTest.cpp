// The check lists of the dialogs, used by their keys.

#include "app/StringIds.h"
#include "data/Text.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Keyboard.h"

namespace program {
namespace {

using Texts = std::vector<std::wstring>;

class CheckList : public ProgramTest {
 protected:
  static void AwaitChecked(const DialogWindow& dialog, int list, int count) {
    driver::ListView checks = dialog.Checks(list);
    driver::Await("the boxes to be checked",
                  [&] { return static_cast<int>(checks.Checked().size()) == count; });
  }
};

TEST_F(CheckList, TabGivesTheFirstItemTheFocusAndSpaceTicksIt) {
  const MainWindow window = Open(SampleSession());
  window.Select(kUsersTab, {L"Blanc"});
  window.Press(kEditUserButton);
  const DialogWindow dialog(Program(), String(app::kEditUserTitle));
  dialog.TabTo(kPermissionsOfUserList);
  driver::ListView list = dialog.Checks(kPermissionsOfUserList);
  EXPECT_EQ(0, list.FocusedRow());
  const bool before = list.Row(0).checked;
  dialog.Key(VK_SPACE);
  driver::Await("the first box to turn over", [&] { return list.Row(0).checked != before; });
}

TEST_F(CheckList, ABlankWithinATypedNameTicksNothing) {
  const MainWindow window = Open(SampleSession());
  window.Press(kNewUserButton);
  const DialogWindow dialog(Program(), String(app::kNewUserTitle));
  dialog.TabTo(kPermissionsOfUserList);
  driver::ListView list = dialog.Checks(kPermissionsOfUserList);
  driver::TypeText(dialog.Form(), L"modifier les t");
  const int wanted = list.Find(L"Modifier les tarifs d'achat");
  driver::Await("the item to be found", [&] { return list.FocusedRow() == wanted; });
  EXPECT_TRUE(list.Checked().empty());
}

// "Aucun" and "Tous" go off as they are pressed, and must not hand the key on to OK.
TEST_F(CheckList, NoneThenSpaceTwiceSavesNothing) {
  const MainWindow window = Open(SampleSession());
  const std::wstring before = Box().Database().Contents();
  window.Select(kUsersTab, {L"Martin (Jean Martin)"});
  window.Press(kEditUserButton);
  const DialogWindow dialog(Program(), String(app::kEditUserTitle));
  dialog.TabTo(kNoPermissionOfUserButton);
  dialog.Key(VK_SPACE);
  AwaitChecked(dialog, kPermissionsOfUserList, 0);
  dialog.AwaitFocus(kPermissionsOfUserList);
  dialog.Key(VK_SPACE);
  AwaitChecked(dialog, kPermissionsOfUserList, 1);
  EXPECT_TRUE(dialog.IsOpen());
  EXPECT_EQ(before, Box().Database().Contents());
}

TEST_F(CheckList, AllThenSpaceUndoesNothingButOneTick) {
  const MainWindow window = Open(SampleSession());
  window.Press(kNewUserButton);
  const DialogWindow dialog(Program(), String(app::kNewUserTitle));
  dialog.TabTo(kAllPermissionsOfUserButton);
  dialog.Key(VK_SPACE);
  AwaitChecked(dialog, kPermissionsOfUserList, 30);
  dialog.AwaitFocus(kPermissionsOfUserList);
  dialog.Key(VK_SPACE);
  AwaitChecked(dialog, kPermissionsOfUserList, 29);
}

}  // namespace
}  // namespace program
