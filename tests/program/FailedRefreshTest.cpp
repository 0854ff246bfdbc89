// A refresh that an error has stopped: what can be done then, and by whom.

#include "app/StringIds.h"
#include "data/Text.h"
#include "tests/program/ControlIds.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

class FailedRefresh : public ProgramTest {
 protected:
  // Takes a table away, refreshes, and answers with the report on view.
  driver::PromptBox Fail(const MainWindow& window) {
    Box().Database().Run(L"ALTER TABLE QRUPRM RENAME TO ASIDE");
    window.Press(kRefreshButton);
    return driver::AwaitPrompt(Program().Id());
  }
  void PutBack() { Box().Database().Run(L"ALTER TABLE ASIDE RENAME TO QRUPRM"); }

  // Answers what else is reported, and waits until the status line tells that the trees have gaps.
  void AwaitIncomplete(const MainWindow& window) {
    driver::Await("the status line to tell it", [&] {
      if (const auto report = driver::FindPrompt(Program().Id())) report->Answer(IDOK);
      return window.Status() == String(app::kAccountsIncomplete);
    });
  }
};

TEST_F(FailedRefresh, NothingIsCreatedOrRenamedUntilOneSucceeds) {
  const MainWindow window = Open(SampleSession());
  Fail(window).Answer(IDOK);
  AwaitIncomplete(window);
  for (const int button : {kNewUserButton, kEditUserButton, kNewGroupButton, kEditGroupButton}) {
    EXPECT_FALSE(window.IsEnabled(button)) << button;
  }
  PutBack();
  window.PressAndWait(kRefreshButton);
  EXPECT_TRUE(window.IsEnabled(kNewUserButton));
  EXPECT_TRUE(window.IsEnabled(kNewGroupButton));
}

TEST_F(FailedRefresh, WhileItsReportWaitsForAnAnswerOthersCanWrite) {
  const MainWindow window = Open(SampleSession());
  const driver::PromptBox report = Fail(window);
  PutBack();
  EXPECT_NO_THROW(Box().Database().Run(L"UPDATE QRUSER SET FULLNAME = 'Autre' WHERE USERID = 20"));
  report.Answer(IDOK);
  AwaitIncomplete(window);
  window.PressAndWait(kRefreshButton);
  ExpectAccountsAsStored(window, kUsersTab);
}

}  // namespace
}  // namespace program
