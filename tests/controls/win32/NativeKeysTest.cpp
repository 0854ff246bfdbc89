#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

class NativeKeys : public ControlsTest {
 protected:
  NativeKeys() {
    form.OnKeyDown = [this](int key) { events.push_back(L"down " + std::to_wstring(key)); };
    form.OnKeyUp = [this](int key) { events.push_back(L"up " + std::to_wstring(key)); };
    form.name.SetFocus();
  }

  HWND Box() const { return form.name.BackEnd().window; }
  void Post(HWND window, UINT number, WPARAM key) {
    PostMessageW(window, number, key, 1);
    user.Settle();
  }
  void AskForHelp(HWND window) {
    HELPINFO help = {};
    help.cbSize = sizeof help;
    SendMessageW(window, WM_HELP, 0, controls::AsLParam(&help));
  }
};

TEST_F(NativeKeys, F1ReachesTheFormOnceAsAKey) {
  Post(Box(), WM_KEYDOWN, VK_F1);
  Post(Box(), WM_KEYUP, VK_F1);
  EXPECT_EQ(events, (Events{L"down 112", L"up 112"}));
}

TEST_F(NativeKeys, F1ReachesTheFormOnceAsAKeyThatTheSystemTurnsIntoARequestForHelp) {
  Post(Box(), WM_KEYDOWN, VK_F1);
  AskForHelp(Box());
  Post(Box(), WM_KEYUP, VK_F1);
  EXPECT_EQ(events, (Events{L"down 112", L"up 112"}));
}

TEST_F(NativeKeys, F1ReachesTheFormOnceAsARequestForHelpAlone) {
  AskForHelp(Box());
  EXPECT_EQ(events, (Events{L"up 112"}));
  AskForHelp(form.BackEnd().life.window);
  EXPECT_EQ(events, (Events{L"up 112", L"up 112"}));
}

TEST_F(NativeKeys, F1ReachesTheFormAfterItsReleaseWasLost) {
  Post(Box(), WM_KEYDOWN, VK_F1);
  SendMessageW(form.BackEnd().life.window, WM_ACTIVATE, WA_INACTIVE, 0);
  events.clear();
  AskForHelp(Box());
  EXPECT_EQ(events, (Events{L"up 112"}));
}

TEST_F(NativeKeys, ARequestForHelpDoesNotReachTheFormBelowAModalOne) {
  SmallForm dialog(desktop);
  int asked = 0;
  dialog.OnKeyUp = [&](int) { ++asked; };
  user.ExpectModal([&](controls::Form& shown) {
    AskForHelp(shown.BackEnd().life.window);
    AskForHelp(form.BackEnd().life.window);
    user.Close(shown);
  });
  dialog.ShowModal(form);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(events, Events{});
}

TEST_F(NativeKeys, KeysPostedByAnotherProgramPressButtons) {
  form.ok.Click = [this] { events.push_back(L"ok"); };
  form.SetDefaultButton(form.ok);
  Post(Box(), WM_KEYDOWN, VK_RETURN);
  EXPECT_EQ(events, (Events{L"down 13", L"ok"}));
}

}  // namespace
}  // namespace controls_test
