#include <windows.h>

#include <gtest/gtest.h>
#include <htmlhelp.h>

#include "HelpFile.h"
#include "app/MShowHelp.h"

namespace help_test {
namespace {

// The help viewer of the system, without the product's library in front of it.
class HelpViewer : public testing::Test {
 protected:
  void SetUp() override {
    library_ = LoadLibraryW(L"hhctrl.ocx");
    ASSERT_NE(library_, nullptr);
    open_ = reinterpret_cast<decltype(&HtmlHelpW)>(
        reinterpret_cast<void*>(GetProcAddress(library_, "HtmlHelpW")));
    ASSERT_NE(open_, nullptr);
  }

  void TearDown() override {
    if (open_ != nullptr) open_(nullptr, nullptr, HH_CLOSE_ALL, 0);
    if (library_ != nullptr) FreeLibrary(library_);
  }

  HWND Open(int topic) const {
    return open_(nullptr, HelpFile::Path().c_str(), HH_HELP_CONTEXT, static_cast<DWORD_PTR>(topic));
  }

  HMODULE library_ = nullptr;
  decltype(&HtmlHelpW) open_ = nullptr;
};

TEST_F(HelpViewer, OpensATopicUnderTheTitleOfTheHelpFile) {
  const HWND viewer = Open(app::kTopicUserGroupPerm);
  ASSERT_NE(viewer, nullptr);
  wchar_t title[100] = {};
  GetWindowTextW(viewer, title, 100);
  EXPECT_STREQ(title, L"Aide d'Admin Utilisateurs");
}

TEST_F(HelpViewer, RefusesATopicThatIsNotThere) {
  EXPECT_EQ(Open(4711), nullptr);
}

}  // namespace

}  // namespace help_test
