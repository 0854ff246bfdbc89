#include <atomic>
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

// Presses Cancel in whatever other window the thread shows, until it is told to stop.
class Canceller {
 public:
  explicit Canceller(HWND owner)
      : owner_(owner), threadId_(GetCurrentThreadId()), thread_([this] { Cancel(); }) {}
  ~Canceller() {
    done_ = true;
    thread_.join();
  }
  Canceller(const Canceller&) = delete;
  Canceller& operator=(const Canceller&) = delete;

 private:
  void Cancel() const {
    while (!done_) {
      EnumThreadWindows(
          threadId_,
          [](HWND window, LPARAM self) -> BOOL {
            const auto* me = reinterpret_cast<const Canceller*>(self);
            if (window != me->owner_ && GetWindow(window, GW_OWNER) == me->owner_) {
              PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
            }
            return TRUE;
          },
          reinterpret_cast<LPARAM>(this));
      Sleep(50);
    }
  }

  HWND owner_;
  DWORD threadId_;
  std::atomic<bool> done_ = false;
  std::thread thread_;
};

TEST_F(NativeSaveFile, CancellingTheQuestionNamesNoFile) {
  const Canceller canceller(Window());
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
