#include "controls/win32/ScrollBarFreeze.h"

#include <gtest/gtest.h>

namespace controls_test {
namespace {

using controls::ScrollBarFreeze;

class FrozenScrollBars : public testing::Test {
 protected:
  FrozenScrollBars() { Set(SB_VERT, 100, 0); }

  void Set(int bar, int most, int place) const {
    SCROLLINFO values = {sizeof values, SIF_RANGE | SIF_PAGE | SIF_POS, 0, most, 10, place, 0};
    SetScrollInfo(window.Get(), bar, &values, TRUE);
  }
  bool IsShown() const { return IsWindowVisible(window.Get()) != FALSE; }

  controls::WindowHandle window{CreateWindowExW(0, L"STATIC", nullptr,
                                                WS_POPUP | WS_VISIBLE | WS_VSCROLL, 0, 0, 100, 100,
                                                nullptr, nullptr, nullptr, nullptr)};
};

TEST_F(FrozenScrollBars, AWindowAreNotToBePaintedWhereTheyAreWhatTheyWere) {
  ScrollBarFreeze bars(window.Get());
  Set(SB_VERT, 0, 0);
  Set(SB_VERT, 100, 0);
  EXPECT_FALSE(bars.End());
}

TEST_F(FrozenScrollBars, AWindowAreToBePaintedWhereTheyHaveChanged) {
  const auto changes = [&](const auto& change) {
    ScrollBarFreeze bars(window.Get());
    change();
    return bars.End();
  };
  EXPECT_TRUE(changes([&] { Set(SB_VERT, 100, 5); })) << "another place";
  EXPECT_TRUE(changes([&] { Set(SB_VERT, 200, 5); })) << "another range";
  EXPECT_TRUE(changes([&] { Set(SB_HORZ, 100, 0); })) << "a second one";
  EXPECT_TRUE(changes([&] { Set(SB_VERT, 0, 0); })) << "gone";
  EXPECT_FALSE(changes([] {}));
}

TEST_F(FrozenScrollBars, AWindowHideItOnlyWhileTheyStand) {
  {
    const ScrollBarFreeze bars(window.Get());
    EXPECT_TRUE(bars.Shown());
    EXPECT_FALSE(IsShown());
  }
  EXPECT_TRUE(IsShown());
}

TEST_F(FrozenScrollBars, AHiddenWindowLeaveItHidden) {
  ShowWindow(window.Get(), SW_HIDE);
  ScrollBarFreeze bars(window.Get());
  Set(SB_VERT, 200, 0);
  EXPECT_FALSE(bars.Shown());
  EXPECT_FALSE(bars.End());
  EXPECT_FALSE(IsShown());
}

TEST_F(FrozenScrollBars, AWindowMayBeKeptStillWithinAnotherTime) {
  ScrollBarFreeze outer(window.Get());
  {
    const ScrollBarFreeze inner(window.Get());
    EXPECT_FALSE(inner.Shown());
  }
  EXPECT_FALSE(IsShown());
  outer.End();
  EXPECT_TRUE(IsShown());
}

}  // namespace
}  // namespace controls_test
