#include <gtest/gtest.h>

#include "app/LocaleFont.h"
#include "app/MShowHelp.h"
#include "app/StringIds.h"
#include "controls/Desktop.h"
#include "controls/Form.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/support/controls/User.h"

namespace app {
namespace {

using controls::HelpOutcome;

class Help : public ::testing::Test {
 protected:
  Help() {
    user.SetProgramFolder(L"C:\\Outils");
    global.helpFile = HelpFile(global);
  }

  // The report that an outcome brings up.
  std::wstring ReportOf(HelpOutcome outcome) {
    user.SetHelpOutcome(outcome);
    user.ExpectMsgBox(controls::kResultOk);
    MShowHelp(global, form, kTopicEditUser);
    return user.SeenBoxes().back().prompt;
  }

  test_support::ScriptedDesktop desktop;
  test_support::User user{desktop};
  mGlobal global{desktop};
  controls::Form form{desktop, IDD_USER_GROUP_PERM};
};

TEST_F(Help, TheHelpFileLiesBesideTheExecutable) {
  EXPECT_EQ(global.helpFile, L"C:\\Outils\\ORMEX.chm");
}

TEST_F(Help, ATopicIsOpenedByItsNumberInTheProgramsFile) {
  MShowHelp(global, form, kTopicEditUser);
  ASSERT_EQ(user.HelpCalls().size(), 1U);
  EXPECT_EQ(user.HelpCalls()[0].topic, 1202);
  EXPECT_EQ(user.HelpCalls()[0].file, L"C:\\Outils\\ORMEX.chm");
}

TEST_F(Help, TheReportSaysWhatKeepsTheHelpFromBeingShown) {
  const std::wstring start = L"MShowHelp Error [";
  EXPECT_EQ(ReportOf(HelpOutcome::kLibraryMissing),
            start + L"53]\r\n" + desktop.LoadResString(app::kHelpLibraryMissing));
  EXPECT_EQ(ReportOf(HelpOutcome::kFunctionMissing),
            start + L"453]\r\n" + desktop.LoadResString(app::kHelpFunctionMissing));
  EXPECT_EQ(ReportOf(HelpOutcome::kFileMissing),
            start + L"53]\r\nLe fichier d'aide C:\\Outils\\ORMEX.chm est introuvable.");
  const std::wstring refused = ReportOf(HelpOutcome::kFileRefused);
  EXPECT_TRUE(refused.starts_with(start + L"75]\r\n")) << data::ToUtf8(refused);
  EXPECT_NE(refused.find(L"C:\\Outils\\ORMEX.chm"), std::wstring::npos) << data::ToUtf8(refused);
  EXPECT_EQ(ReportOf(HelpOutcome::kTopicMissing),
            start + L"5]\r\n" + desktop.LoadResString(app::kHelpTopicMissing));
}

TEST(LocaleFonts, FourLocalesHaveAFontOfTheirOwn) {
  struct Expected {
    int lcid;
    int charset;
    std::wstring face;
  };
  const Expected fonts[] = {
      {2052, 134, {0x5B8B, 0x4F53}},
      {1042, 129, {0xAD74, 0xB9BC}},
      {1028, 136, {0x65B0, 0x7D30, 0x660E, 0x9AD4}},
      {1041, 128, {0xFF2D, 0xFF33, 0x0020, 0xFF30, 0x30B4, 0x30B7, 0x30C3, 0x30AF}},
  };
  for (const Expected& expected : fonts) {
    const auto font = LocaleFont(expected.lcid);
    ASSERT_TRUE(font.has_value()) << expected.lcid;
    EXPECT_EQ(font->face, expected.face) << expected.lcid;
    EXPECT_EQ(font->charset, expected.charset) << expected.lcid;
    EXPECT_EQ(font->size, 9);
  }
}

TEST(LocaleFonts, EveryOtherLocaleKeepsTheFontsOfTheDesign) {
  for (const int lcid : {0, 1033, 1036, 1043, 2060, 3076}) {
    EXPECT_FALSE(LocaleFont(lcid).has_value()) << lcid;
  }
}

TEST(FillInText, PlaceholdersAreReplacedInOnePass) {
  EXPECT_EQ(FillIn(L"%1 de %2", {L"%2", L"b"}), L"%2 de b");
  EXPECT_EQ(FillIn(L"%2, %1, %2", {L"a", L"b"}), L"b, a, b");
}

TEST(FillInText, APercentSignThatNamesNoValueStays) {
  EXPECT_EQ(FillIn(L"100 % %3 %", {L"a"}), L"100 % %3 %");
}

}  // namespace
}  // namespace app
