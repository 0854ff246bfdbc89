// Where dialogs stand over their owner.

#include <memory>

#include "controls/win32/FormPeer.h"
#include "controls/win32/FormPlace.h"
#include "tests/controls/ControlsTest.h"
#include "tests/controls/win32/MessageWatch.h"

namespace controls_test {
namespace {

using namespace controls;

class NativePlace : public ControlsTest {
 protected:
  HWND Window() const { return form.BackEnd().life.window; }
  HWND Dialog() const { return dialog.BackEnd().life.window; }

  // Shows the dialog and has it looked at before it is closed.
  void ShowDialog(const std::function<void()>& look) {
    user.ExpectModal([&](Form&) {
      look();
      dialog.Unload();
    });
    dialog.ShowModal(form);
  }

  void MoveOwner(int left, int top, int width, int height) const {
    SetWindowPos(Window(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  }

  void ExpectInTheMiddle() const {
    const Area over = AreaOf(Window());
    const Area own = AreaOf(Dialog());
    EXPECT_NEAR(own.left + own.right, over.left + over.right, 1);
    EXPECT_NEAR(own.top + own.bottom, over.top + over.bottom, 1);
  }

  void ExpectOnTheMonitor(HWND window) const {
    const Area work = WorkAreaOf(window);
    const Area own = AreaOf(window);
    EXPECT_GE(own.left, work.left);
    EXPECT_GE(own.top, work.top);
    EXPECT_LE(own.right, work.right);
    EXPECT_LE(own.bottom, work.bottom);
  }

  SmallForm dialog{desktop};
};

TEST_F(NativePlace, ADialogIsMadeWithItsOwner) {
  HWND ownerAtLoad = nullptr;
  dialog.OnLoad = [&] { ownerAtLoad = GetWindow(Dialog(), GW_OWNER); };
  ShowDialog([] {});
  EXPECT_EQ(ownerAtLoad, Window());
}

TEST_F(NativePlace, ADialogLoadedBeforehandGetsItsOwnerWhenItIsShown) {
  dialog.Load();
  ShowDialog([&] { EXPECT_EQ(GetWindow(Dialog(), GW_OWNER), Window()); });
}

TEST_F(NativePlace, ADialogStandsInTheMiddleOfItsOwner) {
  MoveOwner(120, 90, 640, 480);
  ShowDialog([&] {
    ExpectInTheMiddle();
    ExpectOnTheMonitor(Dialog());
  });
}

// What Windows does to a window that comes to a monitor of another resolution, in the middle of the
// call that moves it there.
TEST_F(NativePlace, ADialogStandsInTheMiddleAlsoWhenItsMonitorGivesItAnotherSize) {
  MoveOwner(120, 90, 640, 480);
  std::unique_ptr<MessageWatch> watch;
  bool changed = false;
  const auto change = [&](WPARAM, LPARAM moved) {
    if (StructIn<const WINDOWPOS>(moved).flags & SWP_NOMOVE || std::exchange(changed, true)) return;
    Area place = AreaOf(Dialog());
    place.right += place.Width() / 2;
    place.bottom += place.Height() / 2;
    const RECT suggested = {place.left, place.top, place.right, place.bottom};
    const WPARAM dpi = dialog.BackEnd().life.dpi * 3 / 2;
    SendMessageW(Dialog(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), AsLParam(&suggested));
  };
  dialog.OnLoad = [&] {
    watch = std::make_unique<MessageWatch>(Dialog(), WM_WINDOWPOSCHANGED, change);
  };
  ShowDialog([&] {
    watch.reset();
    EXPECT_TRUE(changed);
    EXPECT_EQ(dialog.BackEnd().life.dpi, form.BackEnd().life.dpi * 3 / 2);
    ExpectInTheMiddle();
  });
}

TEST_F(NativePlace, ADialogIsWhollyOnTheScreenThoughItsOwnerIsNot) {
  const Area work = WorkAreaOf(Window());
  MoveOwner(work.right - 60, work.bottom - 60, 640, 480);
  ShowDialog([&] { ExpectOnTheMonitor(Dialog()); });
}

TEST_F(NativePlace, AResizableWindowIsNoLargerThanItsMonitor) {
  form.Unload();
  form.OnLoad = [this] {
    form.SetResizable(true);
    MoveOwner(-50, -50, 9000, 9000);
  };
  form.Show();
  ExpectOnTheMonitor(Window());
}

// A form that no screen has room for.
class LargeForm : public ScriptedForm {
 public:
  explicit LargeForm(Desktop& desktop) : ScriptedForm(desktop, IDD_LARGE_FORM) {}

  CommandButton ok{*this, IDC_TEST_OK};
};

TEST_F(NativePlace, AFormLargerThanTheScreenIsLaidOutForWhatThereIs) {
  LargeForm large(desktop);
  large.OnLoad = [&] {
    large.ok.SetAnchors(kAnchorRight | kAnchorBottom);
    large.SetResizable(true);
  };
  large.Show();
  ExpectOnTheMonitor(large.BackEnd().life.window);
  const Area window = AreaOf(large.BackEnd().life.window);
  const Area button = AreaOf(large.ok.BackEnd().window);
  EXPECT_EQ(FittedInto(button, window), button);
}

TEST_F(NativePlace, TheSmallestSizeFitsOnTheMonitor) {
  form.SetResizable(true);
  const Area own = AreaOf(Window());
  const RECT place = {own.left, own.top, own.right, own.bottom};
  constexpr WPARAM kDpi = 960;
  SendMessageW(Window(), WM_DPICHANGED, MAKEWPARAM(kDpi, kDpi), AsLParam(&place));
  MINMAXINFO limits = {};
  SendMessageW(Window(), WM_GETMINMAXINFO, 0, AsLParam(&limits));
  const Area work = WorkAreaOf(Window());
  EXPECT_EQ(limits.ptMinTrackSize.x, work.Width());
  EXPECT_EQ(limits.ptMinTrackSize.y, work.Height());
}

}  // namespace
}  // namespace controls_test
