#include <chrono>

#include "controls/win32/FormPeer.h"
#include "tests/controls/ControlsTest.h"
#include "tests/support/controls/win32/FormTip.h"

namespace controls_test {
namespace {

using namespace controls;

// The tip of a disabled button, as the system shows it.
class NativeDisabledTip : public ControlsTest {
 protected:
  NativeDisabledTip() {
    form.ok.SetEnabled(false);
    form.ok.SetWhyDisabled(L"Sélectionnez un groupe");
    user.TipOf(form.ok);
    tooltip = test_support::FormTip(Window()).Tooltip();
    SendMessageW(tooltip, TTM_SETDELAYTIME, TTDT_INITIAL, 0);
    SendMessageW(tooltip, TTM_SETDELAYTIME, TTDT_RESHOW, 0);
  }

  HWND Window() const { return form.BackEnd().life.window; }

  // Puts the mouse on a button; what that sets off comes through the form's message loop.
  void Hover(CommandButton& button) {
    RECT place = {};
    GetWindowRect(button.BackEnd().window, &place);
    SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    user.TipOf(button);
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

  HWND tooltip = nullptr;
};

TEST_F(NativeDisabledTip, AppearsUnderTheMouse) {
  Hover(form.cancel);
  Hover(form.ok);
  ASSERT_TRUE(Await([&] { return IsShown(); }));
  wchar_t text[100] = {};
  SendMessageW(tooltip, WM_GETTEXT, 100, AsLParam(&text[0]));
  EXPECT_EQ(std::wstring(text), L"Sélectionnez un groupe");
}

TEST_F(NativeDisabledTip, GoesWhenTheButtonIsOnAgain) {
  Hover(form.cancel);
  Hover(form.ok);
  ASSERT_TRUE(Await([&] { return IsShown(); }));
  form.ok.SetEnabled(true);
  form.ok.SetWhyDisabled(L"");
  EXPECT_TRUE(Await([&] { return !IsShown(); }));
}

TEST_F(NativeDisabledTip, GoesWhenTheMouseGoesElsewhere) {
  Hover(form.cancel);
  Hover(form.ok);
  ASSERT_TRUE(Await([&] { return IsShown(); }));
  Hover(form.cancel);
  EXPECT_TRUE(Await([&] { return !IsShown(); }));
}

}  // namespace
}  // namespace controls_test
