// Pictures of both tabs, opened to leaves, kept where there is a display to take them from.

#include "tests/program/Outline.h"
#include "tests/program/Paths.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Keyboard.h"
#include "tests/program/driver/Screenshot.h"

namespace program {
namespace {

class Pictures : public ProgramTest {
 protected:
  // Opens an account with all its folders, so that every kind of node is in sight.
  static void OpenAccount(driver::TreeView& tree, const std::wstring& start) {
    for (const driver::TreeNode& account : tree.Children(tree.Root().item)) {
      if (!account.text.starts_with(start)) continue;
      ReadOutline(tree, account);
      tree.Control().Send(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(account.item));
      return;
    }
    FAIL() << "no such account";
  }

  static void Keep(const MainWindow& window, const wchar_t* name) {
    std::filesystem::create_directories(PicturesFolder());
    const std::filesystem::path file = PicturesFolder() / name;
    std::filesystem::remove(file);
    RedrawWindow(window.Form().Handle(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    driver::SaveScreenshot(window.Form().Rectangle(), file);
  }
};

TEST_F(Pictures, BothTabsCanBeSeenOpenedToTheirLeaves) {
  const MainWindow window = Open(SampleSession());
  driver::BringToFront(window.Form());
  driver::TreeView users = window.Tree(kUsersTab);
  OpenAccount(users, L"Admin");
  EXPECT_EQ(3u, users.KnownChildren(users.Find({L"Admin (Administrateur principal)"}).item).size());
  Keep(window, L"users.bmp");
  window.SelectTab(kGroupsTab);
  driver::TreeView groups = window.Tree(kGroupsTab);
  OpenAccount(groups, L"Administrateurs");
  Keep(window, L"groups.bmp");
}

}  // namespace
}  // namespace program
