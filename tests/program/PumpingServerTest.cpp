// A session server that handles messages in the middle of a call, as one does that shows a window
// of its own. What the user does meanwhile must not begin inside the command that waits for it.

#include <fstream>

#include "resources/ResourceIds.h"
#include "tests/program/Paths.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Registration.h"
#include "tests/program/driver/Button.h"
#include "tests/program/driver/Wait.h"

namespace program {
namespace {

constexpr int kRefresh = IDC_CMD_BTN;
constexpr int kExit = IDC_CMD_BTN + 1;
constexpr int kNewUser = IDC_CMD_USER + 2;

class PumpingServer : public ProgramTest {
 protected:
  std::filesystem::path Sign(const wchar_t* name) { return Box().Folder() / L"home" / name; }
  void Put(const wchar_t* name) { std::ofstream(Sign(name)) << "yes"; }

  // The program on a server that can be told to handle messages.
  MainWindow OpenOnPumpingServer() {
    const std::wstring session = SampleSession();
    Put(L"alive");
    registration_.PointTo(TestsFolder() / L"dying_server.dll");
    return Open(session);
  }
  // Presses Refresh and waits until a call of its reads handles messages.
  void RefreshAndAwaitPumping(const MainWindow& window) {
    Put(L"pump");
    driver::Press(window.Control(kRefresh));
    driver::Await("the server to handle messages",
                  [this] { return std::filesystem::exists(Sign(L"pumping")); });
  }
  void LetTheCallEnd(const MainWindow& window) {
    std::filesystem::remove(Sign(L"pump"));
    driver::Await("the server to be done with messages",
                  [this] { return !std::filesystem::exists(Sign(L"pumping")); });
    window.AwaitUsable();
  }

  Registration registration_;
};

TEST_F(PumpingServer, CannotHaveTheWindowClosedInsideItsCall) {
  const MainWindow window = OpenOnPumpingServer();
  RefreshAndAwaitPumping(window);
  window.Form().Post(WM_CLOSE);
  driver::Press(window.Control(kExit));
  LetTheCallEnd(window);
  EXPECT_TRUE(Program().IsRunning());
  ExpectAccountsAsStored(window, kUsersTab);
  driver::Press(window.Control(kExit));
  ExpectExit(0);
}

TEST_F(PumpingServer, CannotHaveACommandBeginInsideItsCall) {
  const MainWindow window = OpenOnPumpingServer();
  const std::wstring status = window.Status();
  RefreshAndAwaitPumping(window);
  ASSERT_TRUE(window.IsEnabled(kNewUser));
  driver::Press(window.Control(kNewUser));
  driver::Press(window.Control(kRefresh));
  LetTheCallEnd(window);
  driver::Await("the counts to be shown again", [&] { return window.Status() == status; });
  ExpectAccountsAsStored(window, kUsersTab);
  ExpectAccountsAsStored(window, kGroupsTab);
  window.PressAndWait(kRefresh);
  driver::Await("the counts to be shown once more", [&] { return window.Status() == status; });
}

}  // namespace
}  // namespace program
