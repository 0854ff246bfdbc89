#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

class ModalForm : public ControlsTest {
 protected:
  ModalForm() {
    form.more.Click = [this] {
      dialog.ShowModal(form);
      events.push_back(L"after");
    };
    dialog.ok.Click = [this] { dialog.Unload(); };
  }
  SmallForm dialog{desktop};
};

TEST_F(ModalForm, ReturnsWhenItIsUnloaded) {
  user.ExpectModal([this](controls::Form& shown) {
    EXPECT_EQ(&shown, &dialog);
    EXPECT_TRUE(dialog.IsVisible());
    EXPECT_EQ(events, Events{});
    user.Click(dialog.ok);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  user.Click(form.more);
  EXPECT_EQ(events, (Events{L"after"}));
}

TEST_F(ModalForm, KeepsTheUserFromItsOwner) {
  user.ExpectModal([this](controls::Form&) {
    EXPECT_FALSE(user.CanUse(form.ok));
    EXPECT_FALSE(user.Try().Click(form.ok));
    EXPECT_FALSE(user.Try().Close(form));
    EXPECT_FALSE(user.Try().PressKey(form, controls::kKeyF5));
    EXPECT_TRUE(form.ok.Enabled());
    user.Click(dialog.ok);
  });
  user.Click(form.more);
  EXPECT_TRUE(user.Try().Click(form.ok));
}

TEST_F(ModalForm, LetsTheProgramChangeItsOwner) {
  user.ExpectModal([this](controls::Form&) {
    form.name.SetText(L"Martin");
    user.Click(dialog.ok);
  });
  user.Click(form.more);
  EXPECT_EQ(form.name.Text(), L"Martin");
}

TEST_F(ModalForm, EndsWithTheCloseBox) {
  user.ExpectModal([this](controls::Form& shown) { user.Close(shown); });
  user.Click(form.more);
  EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(ModalForm, IsNotShownWhenItsLoadUnloadsIt) {
  dialog.OnLoad = [this] { dialog.Unload(); };
  user.Click(form.more);
  EXPECT_EQ(events, (Events{L"after"}));
  EXPECT_TRUE(user.Try().Click(form.ok));
}

TEST_F(ModalForm, StaysWhenItRefusesToUnload) {
  bool refuse = true;
  dialog.OnUnload = [&](bool& cancel) { cancel = refuse; };
  user.ExpectModal([&](controls::Form&) {
    user.Click(dialog.ok);
    EXPECT_TRUE(dialog.IsVisible());
    EXPECT_FALSE(user.CanUse(form.ok));
    refuse = false;
    user.Click(dialog.ok);
  });
  user.Click(form.more);
  EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(ModalForm, MayBeShownAgain) {
  for (int i = 0; i < 2; ++i) {
    user.ExpectModal([this](controls::Form&) { user.Click(dialog.ok); });
    user.Click(form.more);
  }
  EXPECT_EQ(events, (Events{L"after", L"after"}));
}

TEST_F(ModalForm, MayShowAnother) {
  SmallForm inner(desktop);
  inner.ok.Click = [&] { inner.Unload(); };
  dialog.cancel.Click = [&] {
    inner.ShowModal(dialog);
    events.push_back(L"inner gone");
  };
  user.ExpectModal([&](controls::Form&) {
    user.ExpectModal([&](controls::Form& shown) {
      EXPECT_EQ(&shown, &inner);
      EXPECT_FALSE(user.CanUse(dialog.ok));
      EXPECT_FALSE(user.CanUse(form.ok));
      user.Click(inner.ok);
    });
    user.Click(dialog.cancel);
    EXPECT_TRUE(user.CanUse(dialog.ok));
    EXPECT_FALSE(user.CanUse(form.ok));
    user.Click(dialog.ok);
  });
  user.Click(form.more);
  EXPECT_EQ(events, (Events{L"inner gone", L"after"}));
  EXPECT_TRUE(user.CanUse(form.ok));
}

TEST_F(ModalForm, MayAskInAMessageBox) {
  dialog.cancel.Click = [this] {
    if (desktop.MsgBox(L"?", controls::kYesNo, L"title") == controls::kResultYes) dialog.Unload();
  };
  user.ExpectModal([this](controls::Form&) {
    user.ExpectMsgBox(controls::kResultNo);
    user.Click(dialog.cancel);
    EXPECT_TRUE(dialog.IsLoaded());
    user.ExpectMsgBox(controls::kResultYes);
    user.Click(dialog.cancel);
  });
  user.Click(form.more);
}

TEST_F(ModalForm, HandsBackWhatTheCallerReads) {
  std::wstring chosen;
  dialog.ok.Click = [&] {
    chosen = L"Martin";
    dialog.Unload();
  };
  form.more.Click = [&] {
    dialog.ShowModal(form);
    form.name.SetText(chosen);
  };
  user.ExpectModal([this](controls::Form&) { user.Click(dialog.ok); });
  user.Click(form.more);
  EXPECT_EQ(form.name.Text(), L"Martin");
}

TEST_F(ModalForm, RunHandlesInputUntilTheFormIsUnloaded) {
  TestForm other(desktop);
  other.ok.Click = [&] { events.push_back(L"ok"); };
  user.ExpectModal([&](controls::Form& shown) {
    EXPECT_EQ(&shown, &other);
    user.Click(other.ok);
    user.Close(other);
  });
  desktop.Run(other);
  EXPECT_EQ(events, (Events{L"ok"}));
}

TEST_F(ModalForm, RunReturnsAtOnceWhenTheLoadUnloadsTheForm) {
  TestForm other(desktop);
  other.OnLoad = [&] { other.Unload(); };
  desktop.Run(other);
  EXPECT_FALSE(other.IsLoaded());
}

}  // namespace
}  // namespace controls_test
