#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

using test_support::kKeyTab;

class Focus : public ControlsTest {
 protected:
  void Watch(controls::Control& control, const std::wstring& name) {
    control.GotFocus = [this, name] { events.push_back(L"+" + name); };
    control.LostFocus = [this, name] { events.push_back(L"-" + name); };
  }
  void WatchBoth() {
    Watch(form.name, L"name");
    Watch(form.password, L"password");
  }
};

TEST_F(Focus, GoesToTheFirstControlThatTakesItWhenTheFormIsShown) {
  EXPECT_TRUE(form.name.HasFocus());
  EXPECT_FALSE(form.label.HasFocus());
}

TEST_F(Focus, GoesToTheControlThatAskedForItDuringTheLoad) {
  TestForm other(desktop);
  Watch(other.tree, L"tree");
  other.OnLoad = [&] {
    other.tree.SetFocus();
    EXPECT_FALSE(other.tree.HasFocus());
  };
  other.Show();
  EXPECT_TRUE(other.tree.HasFocus());
  EXPECT_EQ(events, (Events{L"+tree"}));
}

TEST_F(Focus, MovesWithLostBeforeGot) {
  WatchBoth();
  form.password.SetFocus();
  EXPECT_EQ(events, (Events{L"-name", L"+password"}));
  EXPECT_TRUE(form.password.HasFocus());
  EXPECT_FALSE(form.name.HasFocus());
}

TEST_F(Focus, MayBeMovedOnByTheControlThatLosesIt) {
  form.name.LostFocus = [this] { form.ok.SetFocus(); };
  form.password.SetFocus();
  EXPECT_TRUE(form.ok.HasFocus());
  EXPECT_FALSE(form.password.HasFocus());
  user.PressKey(form, kKeyTab);
  EXPECT_TRUE(form.cancel.HasFocus());
}

TEST_F(Focus, MayBeMovedOnByTheControlThatTheTabKeyLeaves) {
  form.name.LostFocus = [this] { form.ok.SetFocus(); };
  user.PressKey(form, kKeyTab);
  EXPECT_TRUE(form.ok.HasFocus());
}

TEST_F(Focus, MayBeKeptByTheControlThatLosesIt) {
  form.name.LostFocus = [this] { form.name.SetFocus(); };
  user.PressKey(form, kKeyTab);
  EXPECT_TRUE(form.name.HasFocus());
}

TEST_F(Focus, MayBeKeptFromTheMouse) {
  form.name.LostFocus = [this] { form.name.SetFocus(); };
  user.Focus(form.password);
  EXPECT_TRUE(form.name.HasFocus());
}

TEST_F(Focus, ReportsNothingWhenItStaysWhereItIs) {
  WatchBoth();
  form.name.SetFocus();
  user.Focus(form.name);
  EXPECT_EQ(events, Events{});
}

TEST_F(Focus, DoesNotGoToADisabledOrHiddenControlOrALabel) {
  form.password.SetEnabled(false);
  form.password.SetFocus();
  form.more.SetVisible(false);
  form.more.SetFocus();
  form.label.SetFocus();
  form.frame.SetFocus();
  EXPECT_TRUE(form.name.HasFocus());
  EXPECT_FALSE(user.Try().Focus(form.password));
  EXPECT_FALSE(user.Try().Focus(form.label));
}

TEST_F(Focus, LeavesAControlThatIsDisabled) {
  WatchBoth();
  form.name.SetEnabled(false);
  EXPECT_TRUE(form.password.HasFocus());
  EXPECT_EQ(events, (Events{L"-name", L"+password"}));
}

TEST_F(Focus, GoesWhereAButtonThatSwitchesItselfOffHasSentIt) {
  form.checkList.AddItem(L"Direction");
  form.more.Click = [this] {
    form.checkList.SetFocus();
    form.more.SetEnabled(false);
  };
  form.more.SetFocus();
  user.PressKey(form, test_support::kKeySpace);
  EXPECT_FALSE(form.more.Enabled());
  EXPECT_TRUE(form.checkList.HasFocus());
  user.PressKey(form, test_support::kKeySpace);
  EXPECT_TRUE(form.checkList.Selected(0));
}

TEST_F(Focus, LeavesAControlThatIsHidden) {
  form.name.SetVisible(false);
  EXPECT_TRUE(form.password.HasFocus());
}

TEST_F(Focus, LeavesAControlWhoseFrameIsHidden) {
  form.framedBox.SetContainer(form.frame);
  form.framedButton.SetContainer(form.frame);
  form.framedBox.SetFocus();
  form.frame.SetVisible(false);
  EXPECT_TRUE(form.plainList.HasFocus());
}

TEST_F(Focus, MayBeMovedOnByAHandler) {
  form.password.GotFocus = [this] { form.more.SetFocus(); };
  form.password.SetFocus();
  EXPECT_TRUE(form.more.HasFocus());
}

TEST_F(Focus, EndsWithAFormThatIsUnloadedByTheControlThatLosesIt) {
  Watch(form.password, L"password");
  form.name.LostFocus = [this] { form.Unload(); };
  form.password.SetFocus();
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(events, Events{});
}

TEST_F(Focus, LetsAGotFocusHandlerChooseTheSelection) {
  form.password.SetText(L"secret");
  form.password.GotFocus = [this] {
    form.password.SetSelStart(1);
    form.password.SetSelLength(2);
  };
  user.Focus(form.password);
  EXPECT_EQ(form.password.SelStart(), 1);
  EXPECT_EQ(form.password.SelLength(), 2);
}

TEST_F(Focus, SelectsTheWholeTextBeforeGotFocus) {
  form.password.SetText(L"secret");
  form.password.GotFocus = [this] { events.push_back(std::to_wstring(form.password.SelLength())); };
  user.PressKey(form, kKeyTab);
  EXPECT_EQ(events, (Events{L"6"}));
}

TEST_F(Focus, IsNotTouchedByAMessageBox) {
  WatchBoth();
  user.ExpectMsgBox(controls::kResultOk);
  desktop.MsgBox(L"prompt", controls::kInformation, L"title");
  EXPECT_TRUE(form.name.HasFocus());
  EXPECT_EQ(events, Events{});
}

TEST_F(Focus, IsNotTouchedByAModalForm) {
  WatchBoth();
  SmallForm dialog(desktop);
  user.ExpectModal([this](controls::Form& shown) { user.Close(shown); });
  dialog.ShowModal(form);
  EXPECT_TRUE(form.name.HasFocus());
  EXPECT_EQ(events, Events{});
  user.Type(form.name, L"x");
  EXPECT_EQ(form.name.Text(), L"x");
}

TEST_F(Focus, RaisesNothingWhenTheFormGoes) {
  WatchBoth();
  form.Unload();
  EXPECT_EQ(events, Events{});
  EXPECT_FALSE(form.name.HasFocus());
}

TEST_F(Focus, FollowsTheTabOrderAsItIsChanged) {
  EXPECT_EQ(form.label.TabIndex(), 0);
  EXPECT_EQ(form.name.TabIndex(), 1);
  EXPECT_EQ(form.more.TabIndex(), 13);
  form.more.SetTabIndex(1);
  EXPECT_EQ(form.label.TabIndex(), 0);
  EXPECT_EQ(form.more.TabIndex(), 1);
  EXPECT_EQ(form.name.TabIndex(), 2);
  EXPECT_EQ(form.cancel.TabIndex(), 13);
  form.more.SetFocus();
  user.PressKey(form, kKeyTab);
  EXPECT_TRUE(form.name.HasFocus());
}

TEST_F(Focus, TabOrderMovesAControlBackToo) {
  form.name.SetTabIndex(2);
  EXPECT_EQ(form.password.TabIndex(), 1);
  EXPECT_EQ(form.name.TabIndex(), 2);
  form.password.SetTabIndex(1);
  EXPECT_EQ(form.password.TabIndex(), 1);
  form.name.SetTabIndex(99);
  EXPECT_EQ(form.name.TabIndex(), 13);
  form.name.SetTabIndex(-3);
  EXPECT_EQ(form.name.TabIndex(), 0);
}

}  // namespace
}  // namespace controls_test
