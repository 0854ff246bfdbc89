#include "app/ErrorReport.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "app/StringIds.h"
#include "controls/Desktop.h"
#include "data/RunTimeError.h"
#include "tests/support/controls/User.h"

namespace app {
namespace {

class Report : public ::testing::Test {
 protected:
  // The text of the report that an error brings up.
  template <typename Error>
  std::wstring Of(const wchar_t* procedure, const Error& error) {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .style = controls::kExclamation,
                       .title = L"Admin Utilisateurs"});
    try {
      throw error;
    } catch (...) {
      ReportError(global, procedure);
    }
    return user.SeenBoxes().back().prompt;
  }

  test_support::ScriptedDesktop desktop;
  test_support::User user{desktop};
  mGlobal global{desktop};
};

TEST_F(Report, AnErrorWithoutATextShowsTheStandardTextOfItsNumber) {
  const std::wstring standard =
      desktop.LoadResString(app::kErrorTexts + static_cast<int>(data::kObjectNotSet));
  ASSERT_FALSE(standard.empty());
  EXPECT_EQ(Of(L"GetAdminUser", data::RunTimeError(91)), L"GetAdminUser Error [91]\r\n" + standard);
}

TEST_F(Report, TheTextThatCameWithTheErrorGoesFirst) {
  EXPECT_EQ(Of(L"RefreshTree", data::RunTimeError(91, L"no such table")),
            L"RefreshTree Error [91]\r\nno such table");
}

TEST_F(Report, AnUnknownNumberShowsTheGenericTextAndStillItsNumber) {
  const std::wstring generic = desktop.LoadResString(app::kErrorTexts);
  ASSERT_FALSE(generic.empty());
  for (const long number : {4711L, 0L, -1L, 55536L, 99999L, 2147483647L}) {
    EXPECT_EQ(Of(L"X", data::RunTimeError(number)),
              L"X Error [" + std::to_wstring(number) + L"]\r\n" + generic);
  }
}

TEST_F(Report, AFailedComCallKeepsItsResultAsASignedNumber) {
  EXPECT_TRUE(Of(L"Form Load", data::RunTimeError(-2147467259, L"unknown session"))
                  .starts_with(L"Form Load Error [-2147467259]\r\n"));
}

TEST_F(Report, EveryNumberThatTheProgramRaisesHasATextOfItsOwn) {
  const std::wstring generic = desktop.LoadResString(app::kErrorTexts);
  for (const long number : {5L, 6L, 7L, 9L, 13L, 53L, 91L, 93L, 424L, 429L, 430L, 438L, 440L, 453L,
                            457L, 35601L, 35602L}) {
    const std::wstring report = Of(L"X", data::RunTimeError(number));
    EXPECT_EQ(report.find(generic), std::wstring::npos) << number;
  }
}

TEST_F(Report, MemoryThatRanOutIsError7) {
  EXPECT_TRUE(Of(L"RefreshTree", std::bad_alloc()).starts_with(L"RefreshTree Error [7]\r\n"));
}

TEST_F(Report, TheWaitPointerEndsBeforeTheReportIsShown) {
  desktop.SetMousePointer(controls::MousePointer::kWait);
  Of(L"RefreshTree", data::RunTimeError(5));
  EXPECT_EQ(desktop.Pointer(), controls::MousePointer::kDefault);
}

}  // namespace
}  // namespace app
