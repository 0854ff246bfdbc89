// The ways out of the program.

#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/ProgramTest.h"

namespace program {
namespace {

class Exit : public ProgramTest {};

TEST_F(Exit, TheButtonEndsTheProgramAndTheSessionStaysUsable) {
  const std::wstring session = SampleSession();
  MainWindow window = Open(session);
  const std::wstring before = Box().Database().Contents();
  window.Press(kExitButton);
  ExpectExit(0);
  EXPECT_EQ(before, Box().Database().Contents());
  window = Open(session);
  EXPECT_GT(window.Tree(kUsersTab).Count(), 1);
}

TEST_F(Exit, ClosingTheWindowEndsTheProgram) {
  const MainWindow window = Open(SampleSession());
  window.Form().Post(WM_CLOSE);
  ExpectExit(0);
}

TEST_F(Exit, AltF4EndsTheProgramAlsoFromATree) {
  const MainWindow window = Open(SampleSession());
  driver::Await("the focus to be on the tree",
                [&] { return driver::FocusIn(window.Form()).Id() == IDC_TREE_USERS; });
  window.Key(VK_F4, {VK_MENU});
  ExpectExit(0);
}

TEST_F(Exit, TheMnemonicOfTheExitButtonEndsTheProgram) {
  const MainWindow window = Open(SampleSession());
  window.Key('Q', {VK_MENU});
  ExpectExit(0);
}

TEST_F(Exit, EscapeDoesNotEndTheProgram) {
  const MainWindow window = Open(SampleSession());
  window.Key(VK_ESCAPE);
  // The key is in the queue before this one, whose effect can be seen.
  window.Key(VK_DOWN);
  driver::TreeView tree = window.Tree(kUsersTab);
  driver::Await("the first user to be selected",
                [&] { return tree.Selected().item != tree.Root().item; });
  EXPECT_TRUE(Program().IsRunning());
}

}  // namespace
}  // namespace program
