// Two programs at a time.

#include "tests/program/ControlIds.h"
#include "tests/program/Outline.h"
#include "tests/program/ProgramTest.h"

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
  one.Press(kExitButton);
  ExpectExit(first, 0);
  Box().Database().Run(L"INSERT INTO QRUSER (USERID, NAME) VALUES (60000, 'Nouveau')");
  other.PressAndWait(kRefreshButton);
  ExpectAccountsAsStored(other, kUsersTab);
  other.Press(kExitButton);
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
