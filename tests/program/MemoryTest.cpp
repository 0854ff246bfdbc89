// What the program remembers of its windows.

#include "app/StringIds.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

class Memory : public ProgramTest {
 protected:
  static void Place(const driver::Window& window, int left, int top, int width, int height) {
    SetWindowPos(window.Handle(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  }
  static void ExpectSame(const RECT& one, const RECT& other) {
    EXPECT_TRUE(EqualRect(&one, &other))
        << one.left << ' ' << one.top << ' ' << one.right << ' ' << one.bottom << " / "
        << other.left << ' ' << other.top << ' ' << other.right << ' ' << other.bottom;
  }
  void Exit(const MainWindow& window) {
    window.Press(kExitButton);
    ExpectExit(0);
  }
};

TEST_F(Memory, TheWindowComesBackWhereItWasWithTheTabThatWasOnView) {
  const std::wstring session = SampleSession();
  const MainWindow first = Open(session);
  Place(first.Form(), 31, 17, 830, 560);
  first.SelectTab(kGroupsTab);
  const RECT before = first.Form().Rectangle();
  Exit(first);
  const MainWindow second = Open(session);
  ExpectSame(second.Form().Rectangle(), before);
  EXPECT_EQ(second.Tabs().Selected(), kGroupsTab);
  EXPECT_TRUE(second.Control(IDC_TREE_GROUPS).IsVisible());
  EXPECT_FALSE(second.Control(IDC_TREE_USERS).IsVisible());
}

TEST_F(Memory, AMaximisedWindowComesBackMaximised) {
  const std::wstring session = SampleSession();
  const MainWindow first = Open(session);
  first.Form().Send(WM_SYSCOMMAND, SC_MAXIMIZE);
  Exit(first);
  EXPECT_TRUE(IsZoomed(Open(session).Form().Handle()));
}

TEST_F(Memory, ADialogIsAsLargeAsItWas) {
  const std::wstring session = SampleSession();
  RECT before = {};
  for (const bool again : {false, true}) {
    const MainWindow window = Open(session);
    window.Press(kNewUserButton);
    const DialogWindow dialog(Program(), String(app::kNewUserTitle));
    if (!again) {
      const RECT design = dialog.Form().Rectangle();
      Place(dialog.Form(), 0, 0, design.right - design.left + 70, design.bottom - design.top + 50);
      before = dialog.Form().Rectangle();
    }
    const RECT now = dialog.Form().Rectangle();
    EXPECT_EQ(now.right - now.left, before.right - before.left);
    EXPECT_EQ(now.bottom - now.top, before.bottom - before.top);
    dialog.Press(IDC_CANCEL);
    window.AwaitUsable();
    Exit(window);
  }
}

}  // namespace
}  // namespace program
