// Pictures of both tabs, opened to leaves, kept where there is a display to take them from.

#include <algorithm>
#include <utility>

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

  static bool IsPainted(const driver::Window& window) {
    if (window.IsVisible() && GetUpdateRect(window.Handle(), nullptr, FALSE)) return false;
    const std::vector<driver::Window> children = window.Children();
    return std::all_of(children.begin(), children.end(), IsPainted);
  }

  // What has been painted may still be on its way to the screen, so two looks have to agree.
  static void Keep(const MainWindow& window, const wchar_t* name) {
    std::filesystem::create_directories(PicturesFolder());
    const std::filesystem::path file = PicturesFolder() / name;
    std::filesystem::remove(file);
    std::string before;
    driver::Await("the picture to stand still", [&] {
      if (!IsPainted(window.Form())) return false;
      driver::SaveScreenshot(window.Form().Rectangle(), file);
      std::string now = FileBytes(file);
      return std::exchange(before, now) == now;
    });
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
