// From an account to another one, a new user from the one at hand, and what the window says of it.

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Mouse.h"

namespace program {
namespace {

constexpr const wchar_t* kLaboratory = L"Laboratoire (Mesures et essais)";
constexpr const wchar_t* kSecret = L"Germinal-85";

class Navigation : public ProgramTest {
 protected:
  static void AwaitSelected(const MainWindow& window, Tab tab, const std::wstring& text) {
    window.AwaitFocus(tab == kUsersTab ? IDC_TREE_USERS : IDC_TREE_GROUPS);
    driver::Await("the node to be selected",
                  [&] { return window.Tree(tab).Selected().text == text; });
  }
};

TEST_F(Navigation, EnterGoesToTheAccountOfALeafAndBackspaceComesBack) {
  const MainWindow window = Open(SampleSession());
  window.ClickNode(kUsersTab, {kMartin, String(app::kMemberOf), kLaboratory});
  window.Key(VK_RETURN);
  AwaitSelected(window, kGroupsTab, kLaboratory);
  EXPECT_FALSE(window.Control(IDC_TREE_USERS).IsVisible());
  window.Key(VK_BACK);
  AwaitSelected(window, kUsersTab, kLaboratory);
  // Without a way back the key goes up, one node at a time.
  window.Key(VK_BACK);
  AwaitSelected(window, kUsersTab, String(app::kMemberOf));
}

TEST_F(Navigation, ADoubleClickOnAMemberGoesToTheUser) {
  const MainWindow window = Open(SampleSession());
  window.SelectTab(kGroupsTab);
  window.ClickNode(kGroupsTab, {kLaboratory, String(app::kMembers), kMartin});
  driver::TreeView tree = window.Tree(kGroupsTab);
  const HTREEITEM member = tree.Find({kLaboratory, String(app::kMembers), kMartin}).item;
  driver::DoubleClickAt(tree.Control(), tree.Reveal(member));
  AwaitSelected(window, kUsersTab, kMartin);
}

TEST_F(Navigation, AUserIsDuplicatedWithoutTheMouse) {
  const MainWindow window = Open(SampleSession());
  window.ClickNode(kUsersTab, {kMartin});
  window.Key('D', {VK_CONTROL});
  {
    const DialogWindow dialog(Program(), String(app::kNewUserTitle));
    // In the order of the list, which is that of the stored names.
    EXPECT_EQ((std::vector<std::wstring>{L"Tout le monde", L"Laboratoire", L"Production"}),
              dialog.Checks(kGroupsOfUserList).Checked());
    EXPECT_EQ(2u, dialog.Checks(kPermissionsOfUserList).Checked().size());
    EXPECT_EQ(L"", dialog.Box(IDC_TXT_USER_NAME).Text());
    dialog.AwaitFocus(IDC_TXT_USER_NAME);
    dialog.Type(L"Zola");
    dialog.TabTo(IDC_TXT_PASSWORD);
    dialog.Type(kSecret);
    dialog.TabTo(IDC_TXT_VERIFY);
    dialog.Type(kSecret);
    dialog.Key(VK_RETURN);
    dialog.AwaitClosed();
  }
  window.AwaitUsable();
  AwaitSelected(window, kUsersTab, L"Zola");
  // The groups tree is brought up to date in between.
  driver::Await("the status line to say what was done",
                [&] { return window.Status() == String(app::kUserCreated, {L"Zola"}); });
  const std::wstring links =
      L"SELECT GROUPID FROM QRUSGP WHERE USERID = (SELECT MAX(USERID) FROM QRUSER) ORDER BY 1";
  EXPECT_EQ((std::vector<std::string>{"2", "7", "12"}), Box().Database().Lines(links));
}

TEST_F(Navigation, TheWindowNamesTheUserOfTheSession) {
  const MainWindow window = Open(SampleSession());
  EXPECT_EQ(data::ToUtf8(String(app::kSessionUser, {kAdmin})),
            data::ToUtf8(window.Control(IDC_SESSION).Text()));
}

}  // namespace
}  // namespace program
