#include <gtest/gtest.h>

#include "BuiltLibrary.h"

namespace com_test {
namespace {

using HelpFunction = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);

constexpr UINT kHelpContext = 15;

TEST(HelpLibrary, OffersItsFunctionUnderItsPlainName) {
  const BuiltLibrary library(L"kvh_util.dll");
  ASSERT_TRUE(library.IsLoaded());
  EXPECT_NE(nullptr, library.Find<HelpFunction>("HtmlHelpForVB"));
}

TEST(HelpLibrary, SaysThatTheHelpFileIsMissing) {
  const BuiltLibrary library(L"kvh_util.dll");
  const auto show = library.Find<HelpFunction>("HtmlHelpForVB");
  ASSERT_NE(nullptr, show);
  SetLastError(ERROR_SUCCESS);
  EXPECT_EQ(nullptr, show(nullptr, BuiltFile(L"no such file.chm").c_str(), kHelpContext, 109));
  EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), GetLastError());
  const std::wstring topic = BuiltFile(L"no such file.chm") + L"::/main.htm>main";
  EXPECT_EQ(nullptr, show(nullptr, topic.c_str(), 0, 0));
  EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), GetLastError());
}

TEST(HelpLibrary, SaysThatTheViewerShowedNothing) {
  const BuiltLibrary library(L"kvh_util.dll");
  const auto show = library.Find<HelpFunction>("HtmlHelpForVB");
  ASSERT_NE(nullptr, show);
  EXPECT_EQ(nullptr, show(nullptr, BuiltFile(L"kvh_util.dll").c_str(), kHelpContext, 109));
  EXPECT_EQ(static_cast<DWORD>(ERROR_NOT_FOUND), GetLastError());
}

}  // namespace
}  // namespace com_test
