#include <chrono>
#include <future>
#include <thread>

#include "controls/win32/FormPeer.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

// The system's own question where to save, and its keys.
class NativeSaveFile : public ControlsTest {
 protected:
  HWND Window() const { return form.BackEnd().life.window; }
};

// Presses a button of the dialog that stands over a window as soon as it is there.
class Presser {
 public:
  Presser(HWND owner, WPARAM button) : thread_([owner, button] { Press(owner, button); }) {}
  ~Presser() { thread_.join(); }
  Presser(const Presser&) = delete;
  Presser& operator=(const Presser&) = delete;

 private:
  static void Press(HWND owner, WPARAM button) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (std::chrono::steady_clock::now() < end) {
      HWND dialog = GetWindow(owner, GW_ENABLEDPOPUP);
      if (dialog != nullptr && dialog != owner && IsWindowVisible(dialog)) {
        PostMessageW(dialog, WM_COMMAND, button, 0);
        return;
      }
      Sleep(10);
    }
  }

  std::thread thread_;
};

TEST_F(NativeSaveFile, CancellingTheQuestionNamesNoFile) {
  const Presser presser(Window(), IDCANCEL);
  EXPECT_EQ(desktop.AskSaveFile(form, L"Title", L"name", {{L"Table", L"csv"}, {L"Page", L"html"}}),
            std::nullopt);
}

TEST_F(NativeSaveFile, EscapeIsSeenAmongWhatWasTypedAndAllOfItDropped) {
  EXPECT_FALSE(desktop.EscapePressed());
  PostMessageW(Window(), WM_KEYDOWN, 'A', 0);
  EXPECT_FALSE(desktop.EscapePressed());
  PostMessageW(Window(), WM_KEYDOWN, 'B', 0);
  PostMessageW(Window(), WM_KEYDOWN, VK_ESCAPE, 0);
  PostMessageW(Window(), WM_KEYUP, VK_ESCAPE, 0);
  EXPECT_TRUE(desktop.EscapePressed());
  EXPECT_FALSE(desktop.EscapePressed());
  MSG message = {};
  EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_NOREMOVE));
}

}  // namespace
}  // namespace controls_test
