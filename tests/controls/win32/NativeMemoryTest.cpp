// What forms keep of their size and place from one life to the next.

#include "controls/win32/FormPeer.h"
#include "controls/win32/FormPlace.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

using namespace controls;

constexpr const wchar_t* kName = L"TestForm";

class NativeMemory : public ControlsTest {
 protected:
  NativeMemory() {
    form.Unload();
    form.OnLoad = [this] {
      form.SetResizable(true);
      form.KeepPlace(kName, Form::Kept::kPlace);
    };
    dialog.OnLoad = [this] {
      dialog.SetResizable(true);
      dialog.KeepPlace(L"Dialog", Form::Kept::kSize);
    };
  }

  HWND Window() const { return form.BackEnd().life.window; }
  HWND Dialog() const { return dialog.BackEnd().life.window; }
  std::wstring Kept() const { return desktop.system.Setting(kName); }
  void ShowAgain() {
    form.Unload();
    form.Show();
  }

  SmallForm dialog{desktop};
};

TEST_F(NativeMemory, AFormComesBackWhereItWas) {
  form.Show();
  const Area at = {40, 30, 740, 580};
  MoveWindowTo(Window(), at);
  const Area before = AreaOf(Window());
  ShowAgain();
  EXPECT_EQ(AreaOf(Window()), before);
  EXPECT_FALSE(IsZoomed(Window()));
}

TEST_F(NativeMemory, AMaximisedFormComesBackMaximisedAndHasItsOldSizeBelow) {
  form.Show();
  MoveWindowTo(Window(), {40, 30, 740, 580});
  const Area before = AreaOf(Window());
  ShowWindow(Window(), SW_MAXIMIZE);
  ShowAgain();
  EXPECT_TRUE(IsZoomed(Window()));
  ShowWindow(Window(), SW_RESTORE);
  EXPECT_EQ(AreaOf(Window()), before);
}

TEST_F(NativeMemory, AnIconComesBackAsTheWindowThatItWas) {
  form.Show();
  MoveWindowTo(Window(), {40, 30, 740, 580});
  const Area before = AreaOf(Window());
  ShowWindow(Window(), SW_MINIMIZE);
  ShowAgain();
  EXPECT_FALSE(IsIconic(Window()));
  EXPECT_EQ(AreaOf(Window()), before);
}

TEST_F(NativeMemory, NothingIsKeptOfAFormThatNobodyHasMoved) {
  form.Show();
  form.Unload();
  EXPECT_TRUE(desktop.system.settings.empty());
}

TEST_F(NativeMemory, AFormThatWasNotShownForgetsNothing) {
  form.Show();
  MoveWindowTo(Window(), {40, 30, 740, 580});
  form.Unload();
  const std::wstring kept = Kept();
  EXPECT_FALSE(kept.empty());
  form.Load();
  form.Unload();
  EXPECT_EQ(Kept(), kept);
}

TEST_F(NativeMemory, APlaceOnAMonitorThatIsGoneIsMovedToOneThatIsThere) {
  desktop.system.settings[kName] = L"-9000 -9000 500 400 900 700 0";
  form.Show();
  const Area work = WorkAreaOf(Window());
  const Area own = AreaOf(Window());
  EXPECT_EQ(FittedInto(own, work), own);
}

TEST_F(NativeMemory, AFormIsNeverSmallerThanItsTemplate) {
  form.Show();
  const Area design = AreaOf(Window());
  form.Unload();
  desktop.system.settings[kName] = L"0 0 0 0 20 20 0";
  form.Show();
  EXPECT_EQ(AreaOf(Window()).Width(), design.Width());
  EXPECT_EQ(AreaOf(Window()).Height(), design.Height());
}

TEST_F(NativeMemory, WhatCannotBeReadIsPassedOver) {
  form.Show();
  const Area design = AreaOf(Window());
  form.Unload();
  desktop.system.settings[kName] = L"something else";
  form.Show();
  EXPECT_EQ(AreaOf(Window()), design);
}

TEST_F(NativeMemory, ADialogKeepsItsSizeAndStandsInTheMiddleOfItsOwner) {
  form.Show();
  Area larger;
  user.ExpectModal([&](Form&) {
    larger = AreaOf(Dialog());
    larger.right += 90;
    larger.bottom += 60;
    MoveWindowTo(Dialog(), larger);
    dialog.Unload();
  });
  dialog.ShowModal(form);
  user.ExpectModal([&](Form&) {
    const Area own = AreaOf(Dialog());
    EXPECT_EQ(own.Width(), larger.Width());
    EXPECT_EQ(own.Height(), larger.Height());
    EXPECT_EQ(own, CentredOver(own, AreaOf(Window()), WorkAreaOf(Window())));
    dialog.Unload();
  });
  dialog.ShowModal(form);
}

}  // namespace
}  // namespace controls_test
