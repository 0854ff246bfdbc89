#include "tests/controls/TreeTest.h"

namespace controls_test {
namespace {

using test_support::kKeyEnter;
using test_support::kKeyEscape;

// Boxes and forms that come up in the middle of an event, as dialogs have them.
class Nested : public TreeTest {
 protected:
  Nested() {
    dialog.OnLoad = [this] {
      dialog.SetDefaultButton(dialog.ok);
      dialog.SetCancelButton(dialog.cancel);
    };
    dialog.ok.Click = [this] { Leave(L"ok"); };
    dialog.cancel.Click = [this] { Leave(L"cancel"); };
  }
  void Leave(const std::wstring& how) {
    events.push_back(how);
    dialog.Unload();
  }
  int Tell(const std::wstring& prompt) {
    return desktop.MsgBox(prompt, controls::kInformation, L"title");
  }

  SmallForm dialog{desktop};
};

TEST_F(Nested, ABoxInChangeLeavesTheTypingWhereItWas) {
  form.name.Change = [this] {
    if (form.name.Text().size() <= 2) return;
    Tell(L"too long");
    form.name.SetText(form.name.Text().substr(0, 2));
    form.name.SetSelStart(2);
  };
  user.ExpectMsgBox(controls::kResultOk);
  user.ExpectMsgBox(controls::kResultOk);
  user.Type(form.name, L"abcd");
  EXPECT_EQ(form.name.Text(), L"ab");
  EXPECT_TRUE(form.name.HasFocus());
}

TEST_F(Nested, ABoxInKeyPressMayComeBeforeTheCharacterIsDiscarded) {
  form.name.KeyPress = [this](wchar_t& character) {
    if (character != L' ') return;
    Tell(L"no blanks");
    character = 0;
  };
  user.ExpectMsgBox(controls::kResultOk);
  user.Type(form.name, L"a b");
  EXPECT_EQ(form.name.Text(), L"ab");
}

TEST_F(Nested, AFailedCheckMaySendTheUserBackToABox) {
  form.password.SetText(L"short");
  form.password.GotFocus = [this] { events.push_back(L"focus"); };
  form.ok.Click = [this] {
    Tell(L"password");
    form.password.SetFocus();
    form.password.SetText(L"");
  };
  user.ExpectMsgBox(controls::kResultOk);
  user.Click(form.ok);
  EXPECT_TRUE(form.password.HasFocus());
  EXPECT_EQ(events, (Events{L"focus"}));
  user.Type(form.password, L"longer");
  EXPECT_EQ(form.password.Text(), L"longer");
}

TEST_F(Nested, ABoxInTheLoadComesBeforeTheFormIsShown) {
  dialog.OnLoad = [this] {
    Tell(L"refused");
    EXPECT_FALSE(dialog.IsVisible());
    dialog.Unload();
  };
  user.ExpectMsgBox(controls::kResultOk);
  dialog.ShowModal(form);
  EXPECT_FALSE(dialog.IsLoaded());
  EXPECT_TRUE(user.CanUse(form.ok));
}

TEST_F(Nested, AFormMayComeUpInADoubleClick) {
  form.plainList.AddItem(L"Martin");
  form.plainList.DblClick = [this] { dialog.ShowModal(form); };
  user.ExpectModal([this](controls::Form& shown) { user.PressKey(shown, kKeyEnter); });
  user.DoubleClick(form.plainList, 0);
  EXPECT_EQ(events, (Events{L"ok"}));
}

TEST_F(Nested, AFormMayComeUpInNodeClick) {
  tree.NodeClick = [this](controls::NodeId) { dialog.ShowModal(form); };
  user.ExpectModal([this](controls::Form& shown) { user.PressKey(shown, kKeyEscape); });
  user.Select(tree, root);
  EXPECT_EQ(events, (Events{L"cancel"}));
  EXPECT_EQ(tree.SelectedNode(), root);
}

TEST_F(Nested, TheTreeMayChangeWhileAFormStandsOverIt) {
  form.more.Click = [this] {
    dialog.ShowModal(form);
    controls::TreeView::Update update(tree);
    tree.RemoveChildren(folder);
    tree.Add(folder, kLeafForm, 9, L"Ventes", 3);
  };
  tree.SetSelectedNode(folder);
  events.clear();
  user.ExpectModal([this](controls::Form&) {
    tree.SetText(adam, L"Adam (Adam Roy)");
    user.Click(dialog.ok);
  });
  user.Click(form.more);
  EXPECT_EQ(Text(adam), L"Adam (Adam Roy)");
  EXPECT_EQ(Children(folder), (Events{L"Ventes"}));
  EXPECT_EQ(tree.SelectedNode(), folder);
}

TEST_F(Nested, EnterReachesTheDefaultButtonFromEveryKindOfControl) {
  form.tabs.AddTab(L"a");
  form.plainList.AddItem(L"x");
  form.checkList.AddItem(L"x");
  form.SetDefaultButton(form.ok);
  form.SetCancelButton(form.cancel);
  form.ok.Click = [this] { events.push_back(L"ok"); };
  form.cancel.Click = [this] { events.push_back(L"cancel"); };
  tree.SetSelectedNode(root);
  for (controls::Control* const control :
       {static_cast<controls::Control*>(&form.name),
        static_cast<controls::Control*>(&form.plainList),
        static_cast<controls::Control*>(&form.multiList),
        static_cast<controls::Control*>(&form.checkList),
        static_cast<controls::Control*>(&form.tabs), static_cast<controls::Control*>(&tree)}) {
    SCOPED_TRACE(control->Id());
    events.clear();
    user.Focus(*control);
    user.PressKey(form, kKeyEnter);
    user.PressKey(form, kKeyEscape);
    EXPECT_EQ(events, (Events{L"ok", L"cancel"}));
    EXPECT_TRUE(control->HasFocus());
  }
}

TEST_F(Nested, AFrameBehindAModalFormMayBeHidden) {
  form.framedBox.SetContainer(form.frame);
  form.framedBox.SetFocus();
  user.ExpectModal([this](controls::Form&) {
    form.frame.SetVisible(false);
    user.Click(dialog.ok);
  });
  dialog.ShowModal(form);
  EXPECT_FALSE(form.framedBox.HasFocus());
  EXPECT_TRUE(form.framedButton.HasFocus());
}

TEST_F(Nested, AClickHandlerMayDisableItsButton) {
  form.ok.Click = [this] {
    form.ok.SetEnabled(false);
    form.more.SetEnabled(true);
  };
  form.more.SetEnabled(false);
  user.Click(form.ok);
  EXPECT_FALSE(form.ok.HasFocus());
  EXPECT_TRUE(form.cancel.HasFocus());
  EXPECT_TRUE(user.CanUse(form.more));
}

TEST_F(Nested, ALostFocusHandlerMayAsk) {
  form.name.LostFocus = [this] { Tell(L"leaving"); };
  user.ExpectMsgBox(controls::kResultOk);
  user.Focus(form.password);
  EXPECT_TRUE(form.password.HasFocus());
}

}  // namespace
}  // namespace controls_test
