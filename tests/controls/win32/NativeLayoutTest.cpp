#include "controls/win32/FormPeer.h"
#include "controls/win32/WindowPlace.h"
#include "resources/ResourceIds.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

using namespace controls;

class NativeLayout : public ControlsTest {
 protected:
  NativeLayout() {
    form.SetResizable(true);
    form.tree.SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRight | kAnchorBottom);
    form.more.SetAnchors(kAnchorRight | kAnchorBottom);
  }

  HWND Window() const { return form.BackEnd().life.window; }
  RECT Place(const Control& control) const { return PlaceIn(Window(), control.BackEnd().window); }
  void Grow(int dx, int dy) const {
    RECT outer = {};
    GetWindowRect(Window(), &outer);
    SetWindowPos(Window(), nullptr, 0, 0, outer.right - outer.left + dx,
                 outer.bottom - outer.top + dy, SWP_NOMOVE | SWP_NOZORDER);
  }
  static void ExpectPlace(const RECT& is, const RECT& was, RECT moves) {
    EXPECT_EQ(is.left, was.left + moves.left);
    EXPECT_EQ(is.top, was.top + moves.top);
    EXPECT_EQ(is.right, was.right + moves.right);
    EXPECT_EQ(is.bottom, was.bottom + moves.bottom);
  }
};

TEST_F(NativeLayout, KeepsControlsAtTheirDistancesFromTheSides) {
  const RECT tree = Place(form.tree);
  const RECT more = Place(form.more);
  const RECT ok = Place(form.ok);
  Grow(100, 60);
  ExpectPlace(Place(form.tree), tree, {0, 0, 100, 60});
  ExpectPlace(Place(form.more), more, {100, 60, 100, 60});
  ExpectPlace(Place(form.ok), ok, {0, 0, 0, 0});
  Grow(-100, -60);
  ExpectPlace(Place(form.tree), tree, {0, 0, 0, 0});
  ExpectPlace(Place(form.more), more, {0, 0, 0, 0});
}

TEST_F(NativeLayout, LetsControlsShareTheWidth) {
  form.tree.SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRightMiddle);
  form.ok.SetAnchors(kAnchorLeftMiddle | kAnchorTop | kAnchorRightMiddle);
  form.more.SetAnchors(kAnchorLeftMiddle | kAnchorTop | kAnchorRight);
  const RECT tree = Place(form.tree);
  const RECT more = Place(form.more);
  const RECT ok = Place(form.ok);
  Grow(100, 60);
  ExpectPlace(Place(form.tree), tree, {0, 0, 50, 0});
  ExpectPlace(Place(form.ok), ok, {50, 0, 50, 0});
  ExpectPlace(Place(form.more), more, {50, 0, 100, 0});
  Grow(-100, -60);
  ExpectPlace(Place(form.more), more, {0, 0, 0, 0});
}

TEST_F(NativeLayout, NeverShrinksBelowTheTemplate) {
  RECT before = {};
  GetClientRect(Window(), &before);
  Grow(-200, -200);
  RECT after = {};
  GetClientRect(Window(), &after);
  EXPECT_EQ(after.right, before.right);
  EXPECT_EQ(after.bottom, before.bottom);
}

TEST_F(NativeLayout, KeepsTheClientAreaWhenTheFrameChanges) {
  RECT before = {};
  GetClientRect(Window(), &before);
  form.SetResizable(false);
  RECT after = {};
  GetClientRect(Window(), &after);
  EXPECT_EQ(after.right, before.right);
  EXPECT_EQ(after.bottom, before.bottom);
  EXPECT_EQ(GetWindowLongPtrW(Window(), GWL_STYLE) & WS_THICKFRAME, 0);
}

TEST_F(NativeLayout, FollowsTheResolutionOfAnotherScreen) {
  const RECT tree = Place(form.tree);
  const LONG height = [this] {
    LOGFONTW font = {};
    GetObjectW(HandleIn<HFONT>(form.ok.BackEnd().Send(WM_GETFONT)), sizeof font, &font);
    return font.lfHeight;
  }();
  RECT outer = {};
  GetWindowRect(Window(), &outer);
  // As much larger as the screen has room for.
  const auto larger = [](LONG length) { return MulDiv(length, 5, 4); };
  RECT place = {outer.left, outer.top, outer.left + larger(outer.right - outer.left),
                outer.top + larger(outer.bottom - outer.top)};
  const WPARAM dpi = form.BackEnd().life.dpi * 5 / 4;
  SendMessageW(Window(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), AsLParam(&place));
  const RECT grown = Place(form.tree);
  EXPECT_EQ(grown.left, larger(tree.left));
  EXPECT_EQ(grown.top, larger(tree.top));
  LOGFONTW font = {};
  GetObjectW(HandleIn<HFONT>(form.ok.BackEnd().Send(WM_GETFONT)), sizeof font, &font);
  EXPECT_EQ(font.lfHeight, larger(height));
  EXPECT_EQ(form.BackEnd().life.dpi, dpi);
}

TEST_F(NativeLayout, AnotherResolutionBringsBackNoFontOrIconOfAnEarlierLoad) {
  const controls::Font first = user.FontOf(form.ok);
  form.SetFont({L"MS Shell Dlg", 19, 0});
  form.SetIcon(IDI_PROGRAM);
  form.Unload();
  form.Show();
  const WPARAM dpi = 2 * form.BackEnd().life.dpi;
  RECT place = {};
  GetWindowRect(Window(), &place);
  SendMessageW(Window(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), AsLParam(&place));
  EXPECT_FALSE(user.HasIcon(form));
  EXPECT_EQ(user.FontOf(form).size, first.size);
  EXPECT_EQ(user.FontOf(form.ok).size, first.size);
}

}  // namespace
}  // namespace controls_test
