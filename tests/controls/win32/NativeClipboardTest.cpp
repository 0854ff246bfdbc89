#include <future>
#include <thread>

#include "controls/win32/FormPeer.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

// The system's clipboard.
class NativeClipboard : public ControlsTest {
 protected:
  NativeClipboard() { desktop.system.answers.SetClipboardText = nullptr; }

  std::wstring Read() const {
    std::wstring text;
    if (!OpenClipboard(form.BackEnd().life.window)) return L"occupied";
    if (HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
      text = static_cast<const wchar_t*>(GlobalLock(block));
      GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
  }
};

// Another program that holds the clipboard.
class Occupier {
 public:
  Occupier() : thread_([this] { Occupy(); }) { held_.get_future().wait(); }
  ~Occupier() {
    release_.set_value();
    thread_.join();
  }

 private:
  void Occupy() {
    EXPECT_TRUE(OpenClipboard(nullptr));
    held_.set_value();
    release_.get_future().wait();
    CloseClipboard();
  }

  std::promise<void> held_;
  std::promise<void> release_;
  std::thread thread_;
};

TEST_F(NativeClipboard, TakesATextAsItIs) {
  const std::wstring text = L"Utilisateurs\r\n\tZo\x00E9 \"&\" \xD83D\xDE00";
  EXPECT_TRUE(desktop.SetClipboardText(text));
  EXPECT_EQ(Read(), text);
  EXPECT_TRUE(desktop.SetClipboardText(L""));
  EXPECT_EQ(Read(), L"");
}

TEST_F(NativeClipboard, TakesNothingWhileAnotherProgramHoldsIt) {
  ASSERT_TRUE(desktop.SetClipboardText(L"before"));
  {
    const Occupier occupier;
    EXPECT_FALSE(desktop.SetClipboardText(L"after"));
  }
  EXPECT_EQ(Read(), L"before");
  EXPECT_TRUE(desktop.SetClipboardText(L"after"));
  EXPECT_EQ(Read(), L"after");
}

}  // namespace
}  // namespace controls_test
