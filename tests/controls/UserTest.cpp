#include <gtest/gtest-spi.h>

#include "controls/PopupMenu.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

// What the user of the tests does where a test or a form is wrong.
class UserOfTests : public ControlsTest {
 protected:
  UserOfTests() {
    dialog.ok.Click = [this] { dialog.Unload(); };
  }
  SmallForm dialog{desktop};
};

TEST_F(UserOfTests, FailsOnAGestureThatAPersonCouldNotMake) {
  form.more.SetEnabled(false);
  EXPECT_NONFATAL_FAILURE(user.Click(form.more), "could not do that");
}

TEST_F(UserOfTests, FailsOnABoxThatWasNotAnnouncedAndRefuses) {
  int answer = 0;
  EXPECT_NONFATAL_FAILURE(answer = desktop.MsgBox(L"surprise", controls::kYesNo, L"title"),
                          "surprise");
  EXPECT_EQ(answer, controls::kResultNo);
  EXPECT_NONFATAL_FAILURE(answer = desktop.MsgBox(L"surprise", controls::kCritical, L"title"),
                          "surprise");
  EXPECT_EQ(answer, controls::kResultOk);
}

TEST_F(UserOfTests, FailsOnABoxThatIsNotTheOneExpected) {
  user.ExpectMsgBox({.answer = controls::kResultOk, .prompt = L"this"});
  EXPECT_NONFATAL_FAILURE(desktop.MsgBox(L"that", controls::kInformation, L"title"), "that");
}

TEST_F(UserOfTests, FailsOnAnAnswerThatTheBoxDoesNotOffer) {
  user.ExpectMsgBox(controls::kResultYes);
  EXPECT_NONFATAL_FAILURE(desktop.MsgBox(L"prompt", controls::kInformation, L"title"),
                          "not a button");
}

TEST_F(UserOfTests, FailsOnAModalFormThatWasNotAnnouncedAndTakesItAway) {
  EXPECT_NONFATAL_FAILURE(dialog.ShowModal(form), "unexpected modal form");
  EXPECT_FALSE(dialog.IsLoaded());
  EXPECT_TRUE(user.CanUse(form.more));
}

TEST_F(UserOfTests, FailsOnAScriptThatLeavesItsFormOpenAndTakesItAway) {
  dialog.OnUnload = [](bool& cancel) { cancel = true; };
  user.ExpectModal([](controls::Form&) {});
  EXPECT_NONFATAL_FAILURE(dialog.ShowModal(form), "has left the form");
  EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(UserOfTests, FailsInTheEndOnABoxThatHasNotAppeared) {
  test_support::ScriptedDesktop other;
  auto someone = std::make_unique<test_support::User>(other);
  someone->ExpectMsgBox(controls::kResultOk);
  EXPECT_NONFATAL_FAILURE(someone.reset(), "has not appeared");
}

TEST_F(UserOfTests, FailsOnAMenuThatWasNotAnnouncedAndChoosesNothing) {
  const controls::NodeId root = form.tree.Add(controls::kNoNode, {L"\\TRT", L""}, 0, L"root", 0);
  int chosen = -1;
  EXPECT_NONFATAL_FAILURE(
      chosen = controls::ShowPopupMenu(form.tree, root, {{1, L"surprise", true}}), "surprise");
  EXPECT_EQ(chosen, 0);
}

TEST_F(UserOfTests, FailsOnACommandThatTheMenuDoesNotOffer) {
  const controls::NodeId root = form.tree.Add(controls::kNoNode, {L"\\TRT", L""}, 0, L"root", 0);
  for (const int command : {1, 2}) {
    user.ExpectMenu(command);
    int chosen = -1;
    EXPECT_NONFATAL_FAILURE(
        chosen = controls::ShowPopupMenu(form.tree, root, {{1, L"disabled", false}}),
        "not to be had");
    EXPECT_EQ(chosen, 0);
  }
}

TEST_F(UserOfTests, FailsInTheEndOnAMenuThatHasNotAppeared) {
  test_support::ScriptedDesktop other;
  auto someone = std::make_unique<test_support::User>(other);
  someone->ExpectMenu(1);
  EXPECT_NONFATAL_FAILURE(someone.reset(), "has not appeared");
}

TEST_F(UserOfTests, FailsInTheEndOnAFormThatHasNotAppeared) {
  test_support::ScriptedDesktop other;
  auto someone = std::make_unique<test_support::User>(other);
  someone->ExpectModal([](controls::Form&) {});
  EXPECT_NONFATAL_FAILURE(someone.reset(), "has not appeared");
}

}  // namespace
}  // namespace controls_test
