// What the program is used for most: somebody is put into a group.

#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

constexpr const wchar_t* kQuality = L"Qualité (Contrôle final et réclamations)";
constexpr const wchar_t* kMartin = L"Martin (Jean Martin)";

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
  window.ClickNode(kGroupsTab, {kQuality, String(309)});
  window.ClickOn(IDC_CMD_MEMBER);
  const DialogWindow dialog(Program(), String(201) + kQuality);
  dialog.AwaitFocus(IDC_TXT_ADD_USER + 1);
  dialog.Type(L"ma");
  const driver::ListBox others = dialog.List(IDC_LIST_ADD_USER + 1);
  const driver::ListBox members = dialog.List(IDC_LIST_ADD_USER + 2);
  EXPECT_EQ(std::vector<std::wstring>{L"Martin"}, others.Selected());
  dialog.ClickOn(IDC_CMD_ADD_USER + 1);
  driver::Await("Martin to be on the right",
                [&] { return members.Selected() == std::vector<std::wstring>{L"Martin"}; });
  EXPECT_EQ(before, Members(kQualityId)) << "nothing is written before OK";
  dialog.ClickOn(IDC_OK);
  dialog.AwaitClosed();

  window.AwaitUsable();
  std::vector<std::string> after = before;
  after.insert(after.begin(), "Martin");  // his number is the lowest
  EXPECT_EQ(after, Members(kQualityId));
  driver::TreeView groups = window.Tree(kGroupsTab);
  EXPECT_EQ(String(309), groups.Selected().text) << "the folder stays selected";
  ExpectAccountAsStored(window, kGroupsTab, kQuality);
  ExpectAccountAsStored(window, kUsersTab, kMartin);
  EXPECT_NO_THROW(window.Tree(kUsersTab).Find({kMartin, String(304), kQuality}));
  EXPECT_NO_THROW(window.Tree(kUsersTab).Find({kMartin, String(306), L"Traiter une réclamation"}));
}

}  // namespace
}  // namespace program
