#include <chrono>

#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"
#include "tests/controls/TreeTest.h"
#include "tests/controls/win32/NativeTree.h"

namespace controls_test {
namespace {

using namespace controls;

// The tips that the system shows.
class NativeTip : public TreeTest {
 protected:
  NativeTip() {
    tooltip = HandleIn<HWND>(Peer().Send(TVM_GETTOOLTIPS));
    SendMessageW(tooltip, TTM_SETDELAYTIME, TTDT_INITIAL, 0);
    SendMessageW(tooltip, TTM_SETDELAYTIME, TTDT_RESHOW, 0);
    user.Expand(tree, root);
  }

  TreeViewPeer& Peer() const { return static_cast<TreeViewPeer&>(tree.BackEnd()); }

  // Puts the mouse on a node.
  void Hover(NodeId node) const {
    const RECT place = Peer().ScreenPlace(node);
    POINT mouse = {place.left + 2, (place.top + place.bottom) / 2};
    SetCursorPos(mouse.x, mouse.y);
    ScreenToClient(Peer().window, &mouse);
    SendMessageW(Peer().window, WM_MOUSEMOVE, 0, MAKELPARAM(mouse.x, mouse.y));
  }
  // Handles input until it comes to that; false when it does not within some seconds.
  template <class Condition>
  bool Await(const Condition& condition) {
    using Clock = std::chrono::steady_clock;
    for (const auto end = Clock::now() + std::chrono::seconds(10); Clock::now() < end;) {
      user.Settle();
      if (condition()) return true;
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
    }
    return false;
  }
  bool IsShown() const { return IsWindowVisible(tooltip) != FALSE; }
  std::wstring ShownText() const {
    std::wstring text(2000, L'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(tooltip, WM_GETTEXT, text.size(), AsLParam(text.data()))));
    return text;
  }

  HWND tooltip = nullptr;
};

TEST_F(NativeTip, AppearsOverTheNodeUnderTheMouse) {
  tree.Tip = [this](NodeId node) { return L"Par le groupe " + Text(node) + L" & Cie"; };
  Hover(adam);
  ASSERT_TRUE(Await([&] { return IsShown(); }));
  EXPECT_EQ(ShownText(), L"Par le groupe Adam & Cie");
}

TEST_F(NativeTip, FollowsTheMouseToAnotherNode) {
  tree.Tip = [this](NodeId node) { return L"Par le groupe " + Text(node); };
  Hover(adam);
  ASSERT_TRUE(Await([&] { return IsShown(); }));
  Hover(zoe);
  EXPECT_TRUE(Await([&] { return IsShown() && ShownText() == L"Par le groupe Zo\x00E9"; }));
}

TEST_F(NativeTip, DoesNotAppearWhereThereIsNothingToSay) {
  int asked = 0;
  tree.Tip = [&](NodeId) {
    ++asked;
    return std::wstring();
  };
  Hover(adam);
  ASSERT_TRUE(Await([&] { return asked > 0; }));
  user.Settle();
  EXPECT_FALSE(IsShown());
}

TEST_F(NativeTip, ShowsATextThatHasNoRoomInTheTree) {
  tree.SetText(adam, std::wstring(80, L'm'));
  Hover(adam);
  ASSERT_TRUE(Await([&] { return IsShown(); }));
  EXPECT_EQ(ShownText(), std::wstring(80, L'm'));
  EXPECT_EQ(user.TipOf(tree, adam), L"");
}

TEST_F(NativeTip, GoesOverSeveralLinesWhenItIsLong) {
  std::wstring text;
  for (int i = 0; i < 40; ++i) text += L"Ressources humaines, ";
  tree.Tip = [&](NodeId) { return text; };
  Hover(adam);
  ASSERT_TRUE(Await([&] { return IsShown(); }));
  RECT place = {};
  GetWindowRect(tooltip, &place);
  EXPECT_LT(place.right - place.left, 400);
  EXPECT_GT(place.bottom - place.top, 60);
}

TEST_F(NativeTip, IsCutWhereTheSystemHasNoRoomForIt) {
  tree.Tip = [](NodeId) { return std::wstring(1022, L'a') + L"\xD83D\xDE00\xD83D\xDE00"; };
  EXPECT_EQ(user.TipOf(tree, adam), std::wstring(1022, L'a') + L"\x2026");
  tree.Tip = [](NodeId) { return std::wstring(1021, L'a') + L"\xD83D\xDE00\xD83D\xDE00"; };
  EXPECT_EQ(user.TipOf(tree, adam), std::wstring(1021, L'a') + L"\x2026");
  tree.Tip = [](NodeId) { return std::wstring(1023, L'a'); };
  EXPECT_EQ(user.TipOf(tree, adam), std::wstring(1023, L'a'));
}

TEST_F(NativeTip, IsNotAskedForInTheMiddleOfAChange) {
  tree.Tip = [](NodeId) { return L"?"; };
  const TreeView::Update update(tree);
  EXPECT_EQ(user.TipOf(tree, adam), L"");
}

// What a system makes of descriptions cannot be read back everywhere; here they must do no harm.
TEST_F(NativeTip, MayDescribeTheNodeThatHasTheFocus) {
  tree.Tip = [this](NodeId node) { return Text(node); };
  user.Select(tree, adam);
  user.Select(tree, zoe);
  tree.Remove(zoe);
  user.Settle();
  controls::Annotation annotation;
  annotation.Set(Peer().window, 1, L"");
  annotation.Set(Peer().window, 1, L"Adam");
  annotation.Set(Peer().window, 2, L"Martin");
  annotation.Clear();
  annotation.Clear();
  annotation.Reset();
  EXPECT_TRUE(annotation.Possible());
}

TEST_F(NativeTip, GoesWhenItsNodeIsTakenAway) {
  tree.Tip = [this](NodeId node) { return Text(node); };
  Hover(adam);
  ASSERT_TRUE(Await([&] { return IsShown(); }));
  tree.Clear();
  user.Settle();
  EXPECT_FALSE(IsShown());
  SendMessageW(Peer().window, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
  user.Settle();
  EXPECT_EQ(tree.Nodes().Count(), 0);
}

}  // namespace
}  // namespace controls_test
