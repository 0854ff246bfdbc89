// What the program is used for most: somebody is put into a group.

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

class TypicalRequest : public ProgramTest {
 protected:
  std::vector<std::string> Members(int group) {
    return Box().Database().Lines(
        L"SELECT NAME FROM QRUSER WHERE USERID IN (SELECT USERID FROM QRUSGP WHERE GROUPID = " +
        std::to_wstring(group) + L") ORDER BY USERID");
  }
};

TEST_F(TypicalRequest, MartinIsPutIntoQualityByHisFirstLetters) {
  constexpr int kQualityId = 6;
  const MainWindow window = Open(SampleSession());
  const std::vector<std::string> before = Members(kQualityId);
  window.ClickTab(kGroupsTab);
  window.ClickNode(kGroupsTab, {kQuality, String(app::kMembers)});
  window.Click(kAssignMembersButton);
  const DialogWindow dialog(Program(), String(app::kAddUsersTitle) + kQuality);
  dialog.AwaitFocus(kOutsideSearchBox);
  dialog.Type(L"ma");
  const driver::ListBox others = dialog.List(kOutsideList);
  const driver::ListBox members = dialog.List(kInsideList);
  EXPECT_EQ(std::vector<std::wstring>{L"Martin"}, others.Selected());
  dialog.Click(kMoveInButton);
  driver::Await("Martin to be on the right",
                [&] { return members.Selected() == std::vector<std::wstring>{L"Martin"}; });
  EXPECT_EQ(before, Members(kQualityId)) << "nothing is written before OK";
  dialog.Click(IDC_OK);
  dialog.AwaitClosed();

  window.AwaitUsable();
  std::vector<std::string> after = before;
  after.insert(after.begin(), "Martin");  // his number is the lowest
  EXPECT_EQ(after, Members(kQualityId));
  driver::TreeView groups = window.Tree(kGroupsTab);
  EXPECT_EQ(String(app::kMembers), groups.Selected().text) << "the folder stays selected";
  ExpectAccountAsStored(window, kGroupsTab, kQuality);
  ExpectAccountAsStored(window, kUsersTab, kMartin);
  EXPECT_NO_THROW(window.Tree(kUsersTab).Find({kMartin, String(app::kMemberOf), kQuality}));
  EXPECT_NO_THROW(window.Tree(kUsersTab).Find(
      {kMartin, String(app::kAllPermissions), L"Traiter une réclamation"}));
}

}  // namespace
}  // namespace program
