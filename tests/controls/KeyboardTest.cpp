#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

using test_support::kKeyEnter;
using test_support::kKeyEscape;
using test_support::kKeySpace;
using test_support::kKeyTab;

class Keyboard : public ControlsTest {
 protected:
  Keyboard() {
    form.ok.Click = [this] { events.push_back(L"ok"); };
    form.cancel.Click = [this] { events.push_back(L"cancel"); };
    form.more.Click = [this] { events.push_back(L"more"); };
    form.framedButton.Click = [this] { events.push_back(L"framed"); };
  }
  void NameButtons() {
    form.SetDefaultButton(form.ok);
    form.SetCancelButton(form.cancel);
  }
};

TEST_F(Keyboard, AButtonReportsAClickAndTakesTheFocus) {
  user.Click(form.more);
  EXPECT_EQ(events, (Events{L"more"}));
  EXPECT_TRUE(form.more.HasFocus());
}

TEST_F(Keyboard, AButtonKeepsItsCaption) {
  form.more.SetCaption(L"Ra&fraîchir");
  EXPECT_EQ(form.more.Caption(), L"Ra&fraîchir");
}

TEST_F(Keyboard, ADisabledOrHiddenButtonCannotBeClicked) {
  form.more.SetEnabled(false);
  EXPECT_FALSE(user.Try().Click(form.more));
  EXPECT_FALSE(user.CanUse(form.more));
  form.more.SetEnabled(true);
  form.more.SetVisible(false);
  EXPECT_FALSE(user.Try().Click(form.more));
  form.more.SetVisible(true);
  EXPECT_TRUE(user.Try().Click(form.more));
  EXPECT_EQ(events, (Events{L"more"}));
}

TEST_F(Keyboard, EnterPressesTheDefaultButtonAndLeavesTheFocus) {
  NameButtons();
  user.Focus(form.name);
  user.PressKey(form, kKeyEnter);
  EXPECT_EQ(events, (Events{L"ok"}));
  EXPECT_TRUE(form.name.HasFocus());
}

TEST_F(Keyboard, EnterPressesAFocusedButtonInstead) {
  NameButtons();
  user.Focus(form.more);
  user.PressKey(form, kKeyEnter);
  EXPECT_EQ(events, (Events{L"more"}));
}

TEST_F(Keyboard, EscapePressesTheCancelButton) {
  NameButtons();
  user.Focus(form.more);
  user.PressKey(form, kKeyEscape);
  EXPECT_EQ(events, (Events{L"cancel"}));
  EXPECT_TRUE(form.more.HasFocus());
}

TEST_F(Keyboard, EnterAndEscapeDoNothingWithoutTheirButtons) {
  user.Focus(form.name);
  user.PressKey(form, kKeyEnter);
  user.PressKey(form, kKeyEscape);
  EXPECT_EQ(events, Events{});
  EXPECT_TRUE(form.IsLoaded());
}

TEST_F(Keyboard, EnterAndEscapeDoNothingWhileTheirButtonsAreDisabled) {
  NameButtons();
  form.ok.SetEnabled(false);
  form.cancel.SetEnabled(false);
  user.Focus(form.name);
  user.PressKey(form, kKeyEnter);
  user.PressKey(form, kKeyEscape);
  EXPECT_EQ(events, Events{});
  EXPECT_TRUE(form.IsLoaded());
}

TEST_F(Keyboard, SpacePressesTheFocusedButton) {
  NameButtons();
  user.Focus(form.framedButton);
  user.PressKey(form, kKeySpace);
  EXPECT_EQ(events, (Events{L"framed"}));
}

TEST_F(Keyboard, SpaceTypesABlankIntoATextBox) {
  user.Focus(form.name);
  user.PressKey(form, kKeySpace);
  EXPECT_EQ(form.name.Text(), L" ");
}

TEST_F(Keyboard, TabGoesThroughTheControlsAndAround) {
  user.Focus(form.name);
  user.PressKey(form, kKeyTab);
  EXPECT_TRUE(form.password.HasFocus());
  user.PressShiftTab(form);
  user.PressShiftTab(form);
  EXPECT_TRUE(form.more.HasFocus());
  user.PressKey(form, kKeyTab);
  EXPECT_TRUE(form.name.HasFocus());
}

TEST_F(Keyboard, TabPassesOverWhatIsDisabledOrHidden) {
  form.password.SetEnabled(false);
  form.framedBox.SetVisible(false);
  user.Focus(form.name);
  user.PressKey(form, kKeyTab);
  EXPECT_TRUE(form.framedButton.HasFocus());
}

TEST_F(Keyboard, FunctionKeysReachTheFormBeforeTheFocusedControl) {
  form.OnKeyDown = [this](int key) { events.push_back(L"down " + std::to_wstring(key)); };
  form.OnKeyUp = [this](int key) { events.push_back(L"up " + std::to_wstring(key)); };
  for (controls::Control* const control :
       {static_cast<controls::Control*>(&form.name), static_cast<controls::Control*>(&form.tree),
        static_cast<controls::Control*>(&form.checkList)}) {
    user.Focus(*control);
    events.clear();
    user.PressKey(form, controls::kKeyF1);
    user.PressKey(form, controls::kKeyF5);
    EXPECT_EQ(events, (Events{L"down 112", L"up 112", L"down 116", L"up 116"}));
  }
}

TEST_F(Keyboard, AFormUnloadedByAKeyIsNotToldOfItsRelease) {
  form.OnKeyDown = [this](int) { form.Unload(); };
  form.OnKeyUp = [this](int) { events.push_back(L"up"); };
  user.PressKey(form, controls::kKeyF5);
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(events, Events{});
}

TEST_F(Keyboard, AMnemonicPressesItsButton) {
  form.more.SetCaption(L"&Plus");
  form.ok.SetCaption(L"Tom && &Jerry");
  user.Mnemonic(form, L'p');
  user.Mnemonic(form, L'J');
  EXPECT_EQ(events, (Events{L"more", L"ok"}));
}

TEST_F(Keyboard, AMnemonicOfALabelLeadsToTheControlBehindIt) {
  form.label.SetCaption(L"&Utilisateur :");
  form.more.SetFocus();
  user.Mnemonic(form, L'u');
  EXPECT_TRUE(form.name.HasFocus());
}

TEST_F(Keyboard, APlainCaptionHasNoMnemonic) {
  form.label.SetPlainCaption(L"Durand &Uhl");
  EXPECT_EQ(form.label.Caption(), L"Durand &Uhl");
  EXPECT_FALSE(user.Try().Mnemonic(form, L'u'));
  form.label.SetCaption(L"&Utilisateur :");
  EXPECT_EQ(form.label.Caption(), L"&Utilisateur :");
  EXPECT_TRUE(user.Try().Mnemonic(form, L'u'));
}

TEST_F(Keyboard, AMnemonicOfADisabledOrHiddenButtonDoesNothing) {
  form.more.SetCaption(L"&Plus");
  form.more.SetEnabled(false);
  EXPECT_FALSE(user.Try().Mnemonic(form, L'p'));
  form.more.SetEnabled(true);
  form.more.SetVisible(false);
  EXPECT_FALSE(user.Try().Mnemonic(form, L'p'));
  EXPECT_EQ(events, Events{});
}

TEST_F(Keyboard, AHiddenButtonLeavesItsMnemonicToOthers) {
  form.ok.SetCaption(L"&Tous");
  form.more.SetCaption(L"&Tous");
  form.ok.SetVisible(false);
  user.Mnemonic(form, L't');
  EXPECT_EQ(events, (Events{L"more"}));
}

}  // namespace
}  // namespace controls_test
