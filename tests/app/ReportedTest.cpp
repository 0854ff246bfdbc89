#include "app/Reported.h"

#include <gtest/gtest.h>

#include "controls/Desktop.h"
#include "data/RunTimeError.h"
#include "tests/support/controls/User.h"

namespace app {
namespace {

class ReportedWork : public ::testing::Test {
 protected:
  void ExpectReport() {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .style = controls::kExclamation,
                       .title = L"Admin Utilisateurs"});
  }

  test_support::ScriptedDesktop desktop;
  test_support::User user{desktop};
  mGlobal global{desktop};
};

TEST_F(ReportedWork, WorkThatAnswersNothingIsDoneWhenItReturns) {
  bool ran = false;
  EXPECT_EQ(Reported(global, L"EditUser", [&] { ran = true; }), Outcome::kDone);
  EXPECT_TRUE(ran);
}

TEST_F(ReportedWork, TheOutcomeOfWorkThatReportedItselfIsPassedOn) {
  EXPECT_EQ(Reported(global, L"EditUser", [] { return Outcome::kFailed; }), Outcome::kFailed);
}

TEST_F(ReportedWork, AnErrorIsShownUnderTheProcedureAndAnsweredWithFailed) {
  ExpectReport();
  EXPECT_EQ(
      Reported(global, L"EditUser", [] { throw data::RunTimeError(data::kOverflow, L"full"); }),
      Outcome::kFailed);
  EXPECT_EQ(user.SeenBoxes().back().prompt, L"EditUser Error [6]\r\nfull");
}

TEST_F(ReportedWork, AValueThatCannotBeHadIsReplacedByTheFallback) {
  EXPECT_EQ(ReportedOr(global, L"GetPermID", -1, [] { return 7; }), 7);
  ExpectReport();
  const auto fails = []() -> int { throw data::RunTimeError(data::kOverflow, L"full"); };
  EXPECT_EQ(ReportedOr(global, L"GetPermID", -1, fails), -1);
}

}  // namespace
}  // namespace app
