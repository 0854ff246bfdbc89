// Database files that are not there, are broken, or are in somebody else's hands.

#include <chrono>
#include <fstream>

#include "data/Text.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

// How long the session server waits for a database that somebody else has locked.
constexpr std::chrono::seconds kLockWait{5};

class DatabaseFault : public ProgramTest {
 protected:
  void ExpectStartToFail(const std::wstring& commandLine, const std::wstring& message) {
    const driver::Process& process = Start(commandLine);
    ExpectReport(Report(L"Form Load", kDatabaseError, message));
    EXPECT_FALSE(FindMainWindow(process.Id()));
    ExpectExit(1);
  }
};

TEST_F(DatabaseFault, AMissingFileIsReportedAndNotMade) {
  const std::wstring session = SampleSession();
  std::filesystem::remove(Box().File());
  ExpectStartToFail(session, L"unable to open database file");
  EXPECT_FALSE(std::filesystem::exists(Box().File()));
}

TEST_F(DatabaseFault, AFileThatIsNoDatabaseIsReportedAndLeftAlone) {
  const std::wstring session = SampleSession();
  const std::string text(4096, 'x');
  std::ofstream(Box().File(), std::ios::binary | std::ios::trunc) << text;
  ExpectStartToFail(session, L"file is not a database");
  EXPECT_TRUE(text == FileBytes(Box().File()));
}

TEST_F(DatabaseFault, ATruncatedFileIsReportedWithTheDatabasesMessage) {
  const std::wstring session = SampleSession();
  const auto size = std::filesystem::file_size(Box().File());
  std::filesystem::resize_file(Box().File(), size / 2);
  const driver::Process& process = Start(session);
  const driver::PromptBox report = driver::AwaitPrompt(process.Id());
  EXPECT_TRUE(report.Text().ends_with(L"\r\ndatabase disk image is malformed"))
      << data::ToUtf8(report.Text());
  report.Answer(IDOK);
  ExpectExit(1);
}

TEST_F(DatabaseFault, AnEmptyFileIsReported) {
  const std::wstring session = SampleSession();
  std::filesystem::resize_file(Box().File(), 0);
  const driver::Process& process = Start(session);
  const driver::PromptBox report = driver::AwaitPrompt(process.Id());
  EXPECT_NE(std::wstring::npos, report.Text().find(L"QRAUSR")) << data::ToUtf8(report.Text());
  report.Answer(IDOK);
  ExpectExit(1);
}

TEST_F(DatabaseFault, ALockThatStaysIsWaitedForFiveSecondsAndThenReported) {
  const std::wstring session = SampleSession();
  Database writer = Box().Database();
  writer.Run(L"BEGIN EXCLUSIVE");
  const auto before = std::chrono::steady_clock::now();
  const driver::Process& process = Start(session);
  const driver::PromptBox report = driver::AwaitPrompt(process.Id());
  const auto waited = std::chrono::steady_clock::now() - before;
  EXPECT_GE(waited, kLockWait);
  EXPECT_LT(waited, 3 * kLockWait);
  EXPECT_EQ(data::ToUtf8(Report(L"Form Load", kDatabaseError, L"database is locked")),
            data::ToUtf8(report.Text()));
  report.Answer(IDOK);
  ExpectExit(1);
}

TEST_F(DatabaseFault, ALockThatGoesInTimeIsNotNoticed) {
  const std::wstring session = SampleSession();
  Database writer = Box().Database();
  writer.Run(L"BEGIN EXCLUSIVE");
  const driver::Process& process = Start(session);
  EXPECT_FALSE(process.WaitForExit(std::chrono::milliseconds(1500))) << "it should be waiting";
  EXPECT_FALSE(driver::FindPrompt(process.Id()));
  writer.Run(L"COMMIT");
  const MainWindow window(process);
  window.AwaitStarted();
  EXPECT_EQ(1 + writer.Number(L"SELECT COUNT(*) FROM QRUSERV"), window.Tree(kUsersTab).Count());
}

TEST_F(DatabaseFault, AReadOnlyFileIsShown) {
  const std::wstring session = SampleSession();
  SetFileAttributesW(Box().File().c_str(), FILE_ATTRIBUTE_READONLY);
  const MainWindow window = Open(session);
  EXPECT_GT(window.Tree(kUsersTab).Count(), 1);
  window.Form().Post(WM_CLOSE);
  ExpectExit(0);
}

}  // namespace
}  // namespace program
