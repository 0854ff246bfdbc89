#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/mGlobal.h"
#include "browser/frmUserGroupPerm.h"
#include "data/SessionServer.h"
#include "tests/support/data/SampleDatabase.h"
#include "tests/support/system/ScriptedDesktop.h"

namespace bench {

// The samples of all measures differ in their users only.
constexpr int kGroups = 200;
constexpr int kPermissions = 200;

// The program up to its started window, on a database of its own.
class Program {
 public:
  explicit Program(const server::GeneratedSize& size);

  // Starts the program; its window is usable then.
  std::unique_ptr<browser::frmUserGroupPerm> Start();
  // What the program sends while the work is done, in order, as a recorded run shows it:
  // statements, BEGIN and COMMIT around what it reads as one state, and for each row that it writes
  // by a result set the next of writes.
  std::vector<std::wstring> Statements(
      const std::function<void(browser::frmUserGroupPerm& window)>& prepare,
      const std::function<void(browser::frmUserGroupPerm& window)>& work,
      const std::vector<std::string>& writes = {});

  // What a user would do in a dialog that appears.
  void AnswerDialogs(std::function<void(controls::Form& form)> answer);
  // Where a user would save a file.
  void AnswerSaveFile(std::function<std::wstring()> answer);

  std::string DatabaseFile() const { return database_.File().string(); }
  test_support::RawDatabase Raw() const { return database_.Raw(); }
  const server::DataSource& Source() const { return database_.Source(); }
  // Behind a database server: the port of the loopback that it is reached by, and another one for
  // the runs to come.
  int ServerPort() const;
  void ReachBy(int port) const;

 private:
  std::unique_ptr<browser::frmUserGroupPerm> Start(
      std::function<std::unique_ptr<data::SessionServer>()> createServer);

  test_support::ScriptedDesktop desktop_;
  app::mGlobal global_{desktop_};
  test_support::SampleDatabase database_;
};

// Does what a program of the bench is for, with COM where there is it. The answer is the program's
// exit code: 1 after an exception, which is told.
int ExitCodeOf(const std::function<void()>& work);

// Reads both trees; throws when that fails.
void Refresh(browser::frmUserGroupPerm& window);

// What is left until the window is usable: it is painted, and the accounts stand in their order.
void Settle(browser::frmUserGroupPerm& window);

}  // namespace bench
