// The end of the user's session, as the system tells of it.

#include "controls/InputHold.h"
#include "controls/win32/FormPeer.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

class LosingForm : public TestForm {
 public:
  using TestForm::TestForm;
  std::wstring UnsavedChanges() const override { return reason; }

  std::wstring reason;
};

class NativeSessionEnd : public testing::Test {
 protected:
  NativeSessionEnd() {
    desktop.system.answers.BlockSessionEnd = [this](const controls::Form& form,
                                                    const std::wstring& reason) {
      events.push_back(L"block " + Name(form) + L": " + reason);
    };
    desktop.system.answers.UnblockSessionEnd = [this](const controls::Form& form) {
      events.push_back(L"unblock " + Name(form));
    };
    below.OnUnload = [this](bool&) { events.push_back(L"unload below"); };
    above.OnUnload = [this](bool& cancel) {
      events.push_back(L"unload above");
      cancel = refuses;
    };
    below.Show();
    above.Show();
  }

  std::wstring Name(const controls::Form& form) const {
    return &form == &below ? L"below" : L"above";
  }
  static LRESULT Query(const controls::Form& form) {
    return SendMessageW(form.BackEnd().life.window, WM_QUERYENDSESSION, 0, ENDSESSION_LOGOFF);
  }
  static void End(const controls::Form& form, bool ends) {
    SendMessageW(form.BackEnd().life.window, WM_ENDSESSION, ends ? TRUE : FALSE, ENDSESSION_LOGOFF);
  }

  test_support::ScriptedDesktop desktop;
  test_support::User user{desktop};
  LosingForm below{desktop};
  LosingForm above{desktop};
  bool refuses = false;
  Events events;
};

TEST_F(NativeSessionEnd, IsAllowedWhereNothingWouldBeLost) {
  EXPECT_EQ(Query(below), TRUE);
  EXPECT_EQ(Query(above), TRUE);
  EXPECT_EQ(events, Events{});
  EXPECT_TRUE(above.IsLoaded());
}

TEST_F(NativeSessionEnd, IsRefusedAsLongAsTheFormRefusesToGo) {
  above.reason = L"changes";
  refuses = true;
  EXPECT_EQ(Query(above), FALSE);
  EXPECT_EQ(events, (Events{L"block above: changes", L"unload above"}));
  End(above, false);
  EXPECT_EQ(events.back(), L"unblock above");
  EXPECT_TRUE(above.IsLoaded());
}

TEST_F(NativeSessionEnd, IsAllowedByAFormThatGoes) {
  above.reason = L"changes";
  EXPECT_EQ(Query(above), TRUE);
  EXPECT_FALSE(above.IsLoaded());
}

TEST_F(NativeSessionEnd, UnloadsTheForm) {
  above.Unload();
  events.clear();
  End(below, true);
  EXPECT_EQ(events, Events{L"unload below"});
  EXPECT_FALSE(below.IsLoaded());
}

TEST_F(NativeSessionEnd, TakesWhatStandsOverTheFormFirst) {
  End(below, true);
  EXPECT_FALSE(above.IsLoaded());
  EXPECT_TRUE(below.IsLoaded()) << "what showed the other form has to end first";
  user.Settle();
  EXPECT_FALSE(below.IsLoaded());
  EXPECT_EQ(events, (Events{L"unload above", L"unload below"}));
}

TEST_F(NativeSessionEnd, AsksNobodyWhenItHasCome) {
  above.reason = L"changes";
  refuses = true;
  End(above, true);
  EXPECT_FALSE(above.IsLoaded());
  EXPECT_EQ(events, Events{});
}

TEST_F(NativeSessionEnd, LeavesTheFormsAloneInTheMiddleOfACall) {
  controls::HoldInput(desktop);
  End(below, true);
  controls::ReleaseInput(desktop);
  EXPECT_TRUE(below.IsLoaded());
  EXPECT_TRUE(above.IsLoaded());
}

}  // namespace
}  // namespace controls_test
