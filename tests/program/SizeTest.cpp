// The window's size.

#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/ProgramTest.h"

namespace program {
namespace {

LONG WidthOf(const RECT& place) {
  return place.right - place.left;
}
LONG HeightOf(const RECT& place) {
  return place.bottom - place.top;
}

class Size : public ProgramTest {
 protected:
  static void Resize(const MainWindow& window, LONG width, LONG height) {
    SetWindowPos(window.Form().Handle(), nullptr, 0, 0, width, height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }

  static bool IsInside(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
  }
};

TEST_F(Size, TheWindowDoesNotGetSmallerThanItsDesign) {
  const MainWindow window = Open(SampleSession());
  const RECT design = window.Form().Rectangle();
  Resize(window, 50, 50);
  driver::Await("the smallest size", [&] {
    const RECT place = window.Form().Rectangle();
    return WidthOf(place) == WidthOf(design) && HeightOf(place) == HeightOf(design);
  });
  for (const driver::Window& control : window.Form().Children()) {
    EXPECT_TRUE(IsInside(control.Rectangle(), window.Form().Rectangle())) << control.Id();
  }
}

TEST_F(Size, TheTreesTakeWhatTheWindowGains) {
  const MainWindow window = Open(SampleSession());
  const RECT form = window.Form().Rectangle();
  const RECT users = window.Control(IDC_TREE_USERS).Rectangle();
  const RECT groups = window.Control(IDC_TREE_GROUPS).Rectangle();
  const RECT exit = window.Control(kExitButton).Rectangle();
  const RECT frame = window.Control(IDC_FRA_USER).Rectangle();
  Resize(window, WidthOf(form) + 120, HeightOf(form) + 80);
  driver::Await("the users tree to grow", [&] {
    const RECT place = window.Control(IDC_TREE_USERS).Rectangle();
    return WidthOf(place) == WidthOf(users) + 120 && HeightOf(place) == HeightOf(users) + 80;
  });
  EXPECT_EQ(WidthOf(groups) + 120, WidthOf(window.Control(IDC_TREE_GROUPS).Rectangle()));
  EXPECT_EQ(HeightOf(groups) + 80, HeightOf(window.Control(IDC_TREE_GROUPS).Rectangle()));
  EXPECT_EQ(exit.left + 120, window.Control(kExitButton).Rectangle().left);
  EXPECT_EQ(exit.top + 80, window.Control(kExitButton).Rectangle().top);
  EXPECT_EQ(frame.left + 120, window.Control(IDC_FRA_USER).Rectangle().left);
  EXPECT_EQ(frame.top, window.Control(IDC_FRA_USER).Rectangle().top);
}

TEST_F(Size, AnIconizedWindowComesBackAsItWas) {
  const MainWindow window = Open(SampleSession());
  const RECT before = window.Form().Rectangle();
  const RECT tree = window.Control(IDC_TREE_USERS).Rectangle();
  window.Form().Send(WM_SYSCOMMAND, SC_MINIMIZE);
  driver::Await("the icon", [&] { return IsIconic(window.Form().Handle()) != FALSE; });
  window.Form().Send(WM_SYSCOMMAND, SC_RESTORE);
  driver::Await("the window to be back", [&] { return IsIconic(window.Form().Handle()) == FALSE; });
  EXPECT_EQ(WidthOf(before), WidthOf(window.Form().Rectangle()));
  EXPECT_EQ(WidthOf(tree), WidthOf(window.Control(IDC_TREE_USERS).Rectangle()));
  EXPECT_EQ(HeightOf(tree), HeightOf(window.Control(IDC_TREE_USERS).Rectangle()));
}

}  // namespace
}  // namespace program
