// Log-off, restart and the end of the program by the system's installer.

#include "app/StringIds.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

class SessionEnd : public ProgramTest {};

TEST_F(SessionEnd, TheProgramAllowsItAndEndsCleanly) {
  const MainWindow window = Open(SampleSession());
  const HWND handle = window.Form().Handle();
  EXPECT_EQ(TRUE, SendMessageW(handle, WM_QUERYENDSESSION, 0, ENDSESSION_CLOSEAPP));
  EXPECT_TRUE(Program().IsRunning());
  SendMessageW(handle, WM_ENDSESSION, TRUE, ENDSESSION_CLOSEAPP);
  ExpectExit(0);
}

TEST_F(SessionEnd, TheProgramGoesOnWhenItIsCalledOff) {
  const MainWindow window = Open(SampleSession());
  const HWND handle = window.Form().Handle();
  EXPECT_EQ(TRUE, SendMessageW(handle, WM_QUERYENDSESSION, 0, ENDSESSION_LOGOFF));
  SendMessageW(handle, WM_ENDSESSION, FALSE, ENDSESSION_LOGOFF);
  window.PressAndWait(kRefreshButton);
  EXPECT_TRUE(Program().IsRunning());
}

}  // namespace
}  // namespace program
