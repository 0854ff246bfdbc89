#include "controls/InputHold.h"
#include "tests/controls/ControlsTest.h"

namespace controls_test {
namespace {

class Desktop : public ControlsTest {};

TEST_F(Desktop, ShowsAMessageBoxAndGivesItsAnswer) {
  user.ExpectMsgBox({.answer = controls::kResultYes,
                     .prompt = L"Première ligne\r\nDeuxième ligne \"œ\"",
                     .style = controls::kYesNo | controls::kCritical | controls::kDefaultButton2,
                     .title = L"Admin Utilisateurs"});
  EXPECT_EQ(desktop.MsgBox(L"Première ligne\r\nDeuxième ligne \"œ\"",
                           controls::kYesNo | controls::kCritical | controls::kDefaultButton2,
                           L"Admin Utilisateurs"),
            controls::kResultYes);
}

TEST_F(Desktop, RemembersTheBoxesThatTheUserHasSeen) {
  user.ExpectMsgBox(controls::kResultOk);
  user.ExpectMsgBox(controls::kResultNo);
  desktop.MsgBox(L"first", controls::kInformation, L"a");
  desktop.MsgBox(L"second", controls::kYesNo | controls::kExclamation, L"b");
  ASSERT_EQ(user.SeenBoxes().size(), 2U);
  EXPECT_EQ(user.SeenBoxes()[0].prompt, L"first");
  EXPECT_EQ(user.SeenBoxes()[0].style, controls::kInformation);
  EXPECT_EQ(user.SeenBoxes()[0].answer, controls::kResultOk);
  EXPECT_EQ(user.SeenBoxes()[1].title, L"b");
  EXPECT_EQ(user.SeenBoxes()[1].answer, controls::kResultNo);
}

TEST_F(Desktop, ReadsTheProgramsTextsByNumber) {
  EXPECT_EQ(desktop.LoadResString(101), L"OK");
  EXPECT_EQ(desktop.LoadResString(250), L"Admin Utilisateurs");
  EXPECT_EQ(desktop.LoadResString(105),
            L"Ra&fra\x00EE"
            L"chir");
  EXPECT_EQ(desktop.LoadResString(1), L"");
  EXPECT_EQ(desktop.LoadResString(65000), L"");
}

TEST_F(Desktop, TellsWhatIsAroundTheProgram) {
  user.SetLcid(1041);
  user.SetProgramFolder(L"C:\\Outils\\Été");
  user.SetCommandLine(L"\"base\" 12");
  EXPECT_EQ(desktop.UserDefaultLcid(), 1041);
  EXPECT_EQ(desktop.ProgramFolder(), L"C:\\Outils\\Été");
  EXPECT_EQ(desktop.CommandLine(), L"\"base\" 12");
}

TEST_F(Desktop, LetsNoFormTakeInputWhileThatIsHeld) {
  form.more.Click = [this] { events.push_back(L"more"); };
  controls::HoldInput(desktop);
  controls::HoldInput(desktop);
  EXPECT_FALSE(user.Try().Click(form.more));
  controls::ReleaseInput(desktop);
  EXPECT_FALSE(user.Try().Click(form.more));
  EXPECT_FALSE(user.Try().Close(form));
  EXPECT_TRUE(form.IsLoaded());
  controls::ReleaseInput(desktop);
  EXPECT_TRUE(user.Try().Click(form.more));
  EXPECT_EQ(events, (Events{L"more"}));
  EXPECT_TRUE(user.Try().Close(form));
}

TEST_F(Desktop, BeepsAndShowsThePointer) {
  desktop.Beep();
  desktop.Beep();
  EXPECT_EQ(user.BeepCount(), 2);
  EXPECT_EQ(desktop.Pointer(), controls::MousePointer::kDefault);
  desktop.SetMousePointer(controls::MousePointer::kWait);
  EXPECT_EQ(desktop.Pointer(), controls::MousePointer::kWait);
  desktop.SetMousePointer(controls::MousePointer::kDefault);
}

TEST_F(Desktop, PutsATextOnTheClipboard) {
  EXPECT_TRUE(desktop.SetClipboardText(L"Utilisateurs\r\n\tZoé"));
  EXPECT_EQ(user.Clipboard(), L"Utilisateurs\r\n\tZoé");
}

TEST_F(Desktop, SaysWhenTheClipboardTakesNothing) {
  desktop.SetClipboardText(L"before");
  user.SetClipboardOccupied(true);
  EXPECT_FALSE(desktop.SetClipboardText(L"after"));
  EXPECT_EQ(user.Clipboard(), L"before");
}

TEST_F(Desktop, OpensHelpAtATopicForAForm) {
  EXPECT_EQ(desktop.HtmlHelp(form, L"C:\\x\\ORMEX.chm", 109), controls::HelpOutcome::kShown);
  user.SetHelpOutcome(controls::HelpOutcome::kFileMissing);
  EXPECT_EQ(desktop.HtmlHelp(form, L"other", 1201), controls::HelpOutcome::kFileMissing);
  ASSERT_EQ(user.HelpCalls().size(), 2U);
  EXPECT_EQ(user.HelpCalls()[0].file, L"C:\\x\\ORMEX.chm");
  EXPECT_EQ(user.HelpCalls()[0].topic, 109);
  EXPECT_EQ(user.HelpCalls()[1].formTemplateId, IDD_TEST_FORM);
}

TEST_F(Desktop, CountsImages) {
  const controls::ImageList images(desktop, {1, 2, 3});
  EXPECT_EQ(images.Count(), 3);
  EXPECT_EQ(images.IconResources()[2], 3);
}

}  // namespace
}  // namespace controls_test
