// Two programs at a time.

#include "resources/ResourceIds.h"
#include "tests/program/Outline.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/driver/Button.h"

namespace program {
namespace {

class Twice : public ProgramTest {};

TEST_F(Twice, TwoProgramsOnOneSessionShowTheSame) {
  const std::wstring session = SampleSession();
  driver::Process& first = Start(session);
  driver::Process& second = Start(session);
  const MainWindow one(first);
  const MainWindow other(second);
  one.AwaitStarted();
  other.AwaitStarted();
  driver::TreeView oneTree = one.Tree(kUsersTab);
  driver::TreeView otherTree = other.Tree(kUsersTab);
  EXPECT_EQ(Print(ReadOutline(oneTree)), Print(ReadOutline(otherTree)));
  driver::Press(one.Control(IDC_CMD_BTN + 1));
  ExpectExit(first, 0);
  other.PressAndWait(IDC_CMD_BTN);
  EXPECT_GT(other.Tree(kUsersTab).Count(), 1);
  driver::Press(other.Control(IDC_CMD_BTN + 1));
  ExpectExit(second, 0);
}

TEST_F(Twice, TwoProgramsOnTwoSessionsRun) {
  const std::wstring session = SampleSession();
  const std::wstring another = Box().OpenSession();
  ASSERT_NE(session, another);
  const MainWindow one(Start(session));
  const MainWindow other(Start(another));
  one.AwaitStarted();
  other.AwaitStarted();
  EXPECT_EQ(one.Status(), other.Status());
}

}  // namespace
}  // namespace program
