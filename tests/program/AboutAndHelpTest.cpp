// The about box and the help.

#include <fstream>

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/Paths.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

using data::ToUtf8;

class About : public ProgramTest {};

TEST_F(About, TheButtonShowsTheSessionServersBoxWhichCloses) {
  const MainWindow window = Open(SampleSession());
  window.Press(IDC_CMD_ABOUT);
  const driver::PromptBox box = driver::AwaitPrompt(Program().Id());
  EXPECT_NE(std::wstring::npos, box.Text().find(L"uadmin.exe")) << ToUtf8(box.Text());
  EXPECT_EQ(std::vector<int>{IDOK}, box.Buttons());
  EXPECT_FALSE(window.Form().IsEnabled()) << "the box is not modal";
  box.Answer(IDOK);
  driver::Await("the window to be usable again", [&] { return window.Form().IsEnabled(); });
}

class Help : public ProgramTest {
 protected:
  // A folder with the program and these parts of it alone.
  std::filesystem::path FolderWith(std::initializer_list<const wchar_t*> parts) {
    const std::filesystem::path folder = Box().Folder() / L"bin";
    std::filesystem::create_directories(folder);
    for (const wchar_t* part : parts) {
      std::filesystem::copy_file(BinFolder() / part, folder / part);
    }
    return folder;
  }

  MainWindow OpenFrom(const std::filesystem::path& folder) {
    const MainWindow window(Start(SampleSession(), folder));
    window.AwaitStarted();
    return window;
  }

  void AwaitViewer() {
    driver::Await("the help viewer", [this] {
      if (const auto box = driver::FindPrompt(Program().Id())) {
        ADD_FAILURE() << ToUtf8(box->Text());
        box->Answer(IDOK);
      }
      return !driver::TopWindows(Program().Id(), [](const driver::Window& window) {
                return window.Class() == L"HH Parent" && window.IsVisible();
              }).empty();
    });
  }

  void ExpectGoesOn(const MainWindow& window) {
    const int before = window.Tree(kUsersTab).Count();
    Box().Database().Run(L"INSERT INTO QRUSER (USERID, NAME) VALUES (60000, 'Nouveau')");
    window.PressAndWait(kRefreshButton);
    EXPECT_EQ(before + 1, window.Tree(kUsersTab).Count());
  }
};

TEST_F(Help, TheButtonOpensTheViewer) {
  const MainWindow window = Open(SampleSession());
  window.Press(IDC_HELP_BUTTON);
  AwaitViewer();
}

TEST_F(Help, F1OpensTheViewerAndTheProgramStillEndsCleanly) {
  const MainWindow window = Open(SampleSession());
  window.Key(VK_F1);
  AwaitViewer();
  window.Form().Post(WM_CLOSE);
  ExpectExit(0);
}

TEST_F(Help, WithoutTheHelpLibraryTheReportSaysSo) {
  const MainWindow window = OpenFrom(FolderWith({L"uadmin.exe", L"ORMEX.chm"}));
  window.Press(IDC_HELP_BUTTON);
  ExpectReport(Report(L"MShowHelp", 53, String(app::kHelpLibraryMissing)));
  ExpectGoesOn(window);
}

TEST_F(Help, ALibraryOfTheCurrentFolderIsNotLoaded) {
  std::filesystem::copy_file(BinFolder() / L"kvh_util.dll", Box().Folder() / L"kvh_util.dll");
  const MainWindow window = OpenFrom(FolderWith({L"uadmin.exe", L"ORMEX.chm"}));
  window.Press(IDC_HELP_BUTTON);
  ExpectReport(Report(L"MShowHelp", 53, String(app::kHelpLibraryMissing)));
}

TEST_F(Help, ADownloadedHelpFileIsShownAsACopyWithoutTheMark) {
  const std::filesystem::path folder = FolderWith({L"uadmin.exe", L"kvh_util.dll", L"ORMEX.chm"});
  const std::filesystem::path copy =
      std::filesystem::path(_wgetenv(L"LOCALAPPDATA")) / L"User Administration\\Help\\ORMEX.chm";
  std::filesystem::remove(copy);
  std::ofstream(folder / L"ORMEX.chm:Zone.Identifier") << "[ZoneTransfer]\r\nZoneId=3\r\n";
  const MainWindow window = OpenFrom(folder);
  window.Key(VK_F1);
  AwaitViewer();
  EXPECT_EQ(FileBytes(folder / L"ORMEX.chm"), FileBytes(copy));
}

TEST_F(Help, WithoutTheHelpFileTheReportNamesIt) {
  const std::filesystem::path folder = FolderWith({L"uadmin.exe", L"kvh_util.dll"});
  const MainWindow window = OpenFrom(folder);
  window.Key(VK_F1);
  ExpectReport(
      Report(L"MShowHelp", 53, String(app::kHelpFileMissing, {(folder / L"ORMEX.chm").wstring()})));
  ExpectGoesOn(window);
}

TEST_F(Help, ALibraryWithoutTheFunctionIsReported) {
  const std::filesystem::path folder = FolderWith({L"uadmin.exe", L"ORMEX.chm"});
  std::filesystem::copy_file(TestsFolder() / L"dying_server.dll", folder / L"kvh_util.dll");
  const MainWindow window = OpenFrom(folder);
  window.Press(IDC_HELP_BUTTON);
  ExpectReport(Report(L"MShowHelp", 453, String(app::kHelpFunctionMissing)));
  ExpectGoesOn(window);
}

}  // namespace
}  // namespace program
