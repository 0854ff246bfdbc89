// Enter in the search boxes of the dialog that adds users to a group.

#include "app/StringIds.h"
#include "data/Text.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

class SearchBox : public ProgramTest {};

TEST_F(SearchBox, EnterMovesTheMarkedUserAndInAnEmptyBoxItIsOk) {
  const MainWindow window = Open(SampleSession());
  window.SelectTab(kGroupsTab);
  window.Select(kGroupsTab, {L"Achats", String(app::kMembers)});
  window.Press(kAssignMembersButton);
  const DialogWindow dialog(Program(), String(app::kAddUsersTitle) + L"Achats");
  dialog.AwaitFocus(kOutsideSearchBox);
  dialog.Type(L"mu");
  const driver::ListBox inside = dialog.List(kInsideList);
  const int before = inside.Count();
  dialog.Key(VK_RETURN);
  driver::Await("Müller to be moved", [&] { return inside.Count() == before + 1; });
  EXPECT_NO_THROW(inside.Find(L"Müller"));
  EXPECT_TRUE(dialog.IsOpen());
  dialog.TabTo(kInsideSearchBox);
  dialog.Key(VK_RETURN);
  dialog.AwaitClosed();
  window.AwaitUsable();
  EXPECT_EQ(1, Box().Database().Number(
                   L"SELECT COUNT(*) FROM QRUSGP WHERE GROUPID = 9 AND USERID = (SELECT USERID "
                   L"FROM QRUSER WHERE NAME = 'Müller')"));
}

}  // namespace
}  // namespace program
