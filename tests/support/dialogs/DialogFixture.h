#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "browser/frmUserGroupPerm.h"
#include "dialogs/Exchange.h"
#include "tests/support/data/Sample.h"
#include "tests/support/lists/Lists.h"
#include "tests/support/window/MainWindowFixture.h"

namespace test_support {

// A dialog's surroundings: the started main window on a database of its own, its trees filled, and
// an Exchange over them with nothing in it yet but Admin's identifier. The window is started by
// SetUp, in a session of Admin; a test that wants another session, or that changes the database
// without the program's knowing and wants the trees to show it, calls Start again.
class DialogFixture : public MainWindowFixture {
 protected:
  void SetUp() override { Start(); }
  void TearDown() override { Stop(); }

  // Starts the program again, and forgets what the log has recorded of that.
  void Start(std::wstring_view userName = L"Admin");
  void Stop();

  // Shows a dialog over the main window. The script runs on the shown dialog and has to bring it to
  // its end. A dialog that must close itself in its load is shown by its own ShowModal(window):
  // the fixture then fails the test if it appears.
  template <class Dialog>
  void Show(Dialog& dialog, const std::function<void(Dialog&)>& script,
            Where where = Where::current()) {
    user.ExpectModal([&](controls::Form&) { script(dialog); }, where);
    dialog.ShowModal(window);
  }

  // The user's clicks on an item of this text.
  void Toggle(controls::ListBox& list, std::wstring_view item, Where where = Where::current());
  void Choose(controls::ListBox& list, std::wstring_view item, Where where = Where::current());

  // The first column of a statement, read without the program.
  Ids IdsIn(const std::string& sql);

  // Forgets what was recorded so far.
  void ClearLog();
  // Lets the call at this position from now on fail, 0 being the next one, whatever it is: a call
  // of the server, a statement, or a write to an open result set. The others go on as they should.
  void FailAtPosition(std::size_t position);
  // Lets every call of this text fail.
  void FailAt(const std::wstring& call);
  // The same for the steps within result sets, of which a test asks how many there were.
  void FailAtRowStep(std::size_t position);
  std::size_t RowStepsTaken() const { return rowSteps_; }
  // Lets nothing fail any more.
  void FailNothing();
  // Whether the failure asked for last has happened.
  bool HasFailed() const { return !failedCall_.empty(); }
  const std::wstring& FailedCall() const { return failedCall_; }
  // The failure's number. Its text is "injected: " and the call.
  static constexpr long kInjected = 1234;

  // Announces the standard error report of an injected failure. Without the call that fails, the
  // text is not compared: compare it afterwards with ReportOf.
  void ExpectReport(const std::wstring& procedure, const std::wstring& call = {},
                    Where where = Where::current());
  // The text of the report that the failure asked for last has to bring up.
  std::wstring ReportOf(const std::wstring& procedure) const;
  // Announces a message box with one button, the information icon and the program's title.
  void ExpectInformation(const std::wstring& prompt, Where where = Where::current());
  // Announces the question whether changes are to be thrown away.
  void ExpectDiscardQuestion(int answer, Where where = Where::current());

  browser::frmUserGroupPerm window{global};
  dialogs::Exchange exchange{global, window.Users.TreeView1, window.Groups.TreeView1};

 private:
  std::wstring failedCall_;
  std::size_t rowSteps_ = 0;
};

}  // namespace test_support
