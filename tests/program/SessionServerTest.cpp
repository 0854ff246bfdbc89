// A session server that is not there, cannot be loaded, or goes wrong.

#include <fstream>

#include "app/StringIds.h"
#include "data/Text.h"
#include "tests/program/Paths.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Registration.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

constexpr long kCannotCreateObject = 429;

class SessionServer : public ProgramTest {
 protected:
  void ExpectStartToFail(long number, const std::wstring& text) {
    const driver::Process& process = Start(L"/source:test /session:1");
    ExpectReport(Report(L"Form Load", number, text));
    EXPECT_FALSE(FindMainWindow(process.Id()));
    ExpectExit(1);
  }

  Registration registration_;
};

TEST_F(SessionServer, OneThatIsNotRegisteredIsReported) {
  registration_.Remove();
  ExpectStartToFail(kCannotCreateObject, String(app::kServerNotRegistered));
}

TEST_F(SessionServer, OneWhoseFileIsMissingIsReported) {
  registration_.PointTo(Box().Folder() / L"vardex.dll");
  ExpectStartToFail(kCannotCreateObject, String(app::kServerFileMissing));
}

TEST_F(SessionServer, OneThatLiesInTheCurrentFolderAloneIsNotLoaded) {
  std::filesystem::copy_file(BinFolder() / L"vardex.dll", Box().Folder() / L"planted.dll");
  registration_.PointTo(L"planted.dll");
  ExpectStartToFail(kCannotCreateObject, String(app::kServerFileMissing));
}

TEST_F(SessionServer, OneForTheOtherWordSizeIsReported) {
  const std::filesystem::path file = Box().Folder() / L"other.dll";
  std::string image = FileBytes(BinFolder() / L"vardex.dll");
  IMAGE_DOS_HEADER start{};
  memcpy(&start, image.data(), sizeof start);
  const bool is64 = sizeof(void*) == 8;
  const WORD other = is64 ? IMAGE_FILE_MACHINE_I386 : IMAGE_FILE_MACHINE_AMD64;
  memcpy(image.data() + start.e_lfanew + sizeof(DWORD), &other, sizeof other);
  std::ofstream(file, std::ios::binary) << image;
  registration_.PointTo(file);
  ExpectStartToFail(kCannotCreateObject, String(app::kServerWrongBitness));
}

TEST_F(SessionServer, AFileThatIsNoLibraryIsReported) {
  const std::filesystem::path file = Box().Folder() / L"text.dll";
  std::ofstream(file) << "This is no library.";
  registration_.PointTo(file);
  const driver::Process& process = Start(L"/source:test /session:1");
  const driver::PromptBox report = driver::AwaitPrompt(process.Id());
  EXPECT_TRUE(report.Text().starts_with(L"Form Load Error [")) << data::ToUtf8(report.Text());
  report.Answer(IDOK);
  ExpectExit(1);
}

TEST_F(SessionServer, OneThatDiesInACallIsReportedAndEndsTheProgramCleanly) {
  registration_.PointTo(TestsFolder() / L"dying_server.dll");
  ExpectStartToFail(kAccessViolation, String(app::kServerLost));
}

}  // namespace
}  // namespace program
