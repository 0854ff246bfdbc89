// Which help files the viewer shows no page of, and what it is given in their place.

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "controls/win32/HelpFile.h"

namespace controls {
namespace {

namespace fs = std::filesystem;

class NativeHelpFile : public ::testing::Test {
 protected:
  NativeHelpFile() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    Write(file_, "the pages");
  }
  ~NativeHelpFile() override {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }

  static void Write(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
  }

  static std::string Read(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  // The mark that the system leaves with what comes from elsewhere.
  static void Mark(const fs::path& file, const std::string& text) {
    Write(file.wstring() + L":Zone.Identifier", text);
  }

  std::optional<std::wstring> Viewable() {
    return ViewableHelpFile(file_.wstring(), copies_.wstring());
  }

  static constexpr const char* kFromTheInternet = "[ZoneTransfer]\r\nZoneId=3\r\n";

  const fs::path folder_ =
      fs::temp_directory_path() / (L"uadmin-help-" + std::to_wstring(GetCurrentProcessId()));
  const fs::path file_ = folder_ / L"ORMEX.chm";
  const fs::path copies_ = folder_ / L"own" / L"copies";
};

TEST_F(NativeHelpFile, OneOfThisMachineIsShownItself) {
  EXPECT_FALSE(IsRefusedByViewer(file_.wstring()));
  EXPECT_EQ(file_.wstring(), Viewable());
  EXPECT_FALSE(fs::exists(copies_));
}

TEST_F(NativeHelpFile, AMarkTellsOfADownload) {
  Mark(file_, kFromTheInternet);
  EXPECT_TRUE(IsRefusedByViewer(file_.wstring()));
  Mark(file_, "[ZoneTransfer]\r\nZoneId=1\r\n");
  EXPECT_TRUE(IsRefusedByViewer(file_.wstring()));
  Mark(file_, "nothing that anybody can read");
  EXPECT_TRUE(IsRefusedByViewer(file_.wstring()));
}

TEST_F(NativeHelpFile, AMarkOfThisMachineItselfIsNone) {
  Mark(file_, "[ZoneTransfer]\r\nZoneId=0\r\n");
  EXPECT_FALSE(IsRefusedByViewer(file_.wstring()));
}

TEST_F(NativeHelpFile, PathsOfOtherMachinesAreKnown) {
  EXPECT_TRUE(NamesAnotherMachine(L"\\\\server\\share\\ORMEX.chm"));
  EXPECT_TRUE(NamesAnotherMachine(L"\\\\?\\UNC\\server\\share\\ORMEX.chm"));
  EXPECT_TRUE(IsRefusedByViewer(L"\\\\no-such-server\\share\\ORMEX.chm"));
  EXPECT_FALSE(NamesAnotherMachine(L"C:\\Outils\\ORMEX.chm"));
  EXPECT_FALSE(NamesAnotherMachine(L"\\\\?\\C:\\Outils\\ORMEX.chm"));
  EXPECT_FALSE(NamesAnotherMachine(L"\\\\.\\C:\\ORMEX.chm"));
}

TEST_F(NativeHelpFile, ARefusedOneIsShownAsACopyWithoutTheMark) {
  Mark(file_, kFromTheInternet);
  const auto copy = Viewable();
  ASSERT_EQ((copies_ / L"ORMEX.chm").wstring(), copy);
  EXPECT_EQ("the pages", Read(*copy));
  EXPECT_FALSE(IsRefusedByViewer(*copy));
  EXPECT_EQ(1, std::distance(fs::directory_iterator(copies_), {}));
}

TEST_F(NativeHelpFile, AnEarlierCopyIsTakenOnlyAsLongAsItIsTheSame) {
  Mark(file_, kFromTheInternet);
  const fs::path copy = Viewable().value();
  const auto then = fs::last_write_time(copy) - std::chrono::hours(1);
  fs::last_write_time(copy, then);
  EXPECT_EQ(copy.wstring(), Viewable());
  EXPECT_EQ(then, fs::last_write_time(copy)) << "a good copy was written again";
  Write(copy, "THE PAGES");
  EXPECT_EQ(copy.wstring(), Viewable());
  EXPECT_EQ("the pages", Read(copy));
  Write(file_, "the pages of the next version");
  EXPECT_EQ(copy.wstring(), Viewable());
  EXPECT_EQ("the pages of the next version", Read(copy));
}

TEST_F(NativeHelpFile, WithoutAPlaceForTheCopyThereIsNone) {
  Mark(file_, kFromTheInternet);
  EXPECT_EQ(std::nullopt, ViewableHelpFile(file_.wstring(), L""));
  fs::create_directories(copies_.parent_path());
  Write(copies_, "a file where the folder should be");
  EXPECT_EQ(std::nullopt, Viewable());
}

TEST_F(NativeHelpFile, ACopyThatStaysMarkedIsNotShown) {
  Mark(file_, kFromTheInternet);
  fs::create_directories(copies_);
  // Where streams are files, replacing the copy leaves the mark; elsewhere the mark goes with it.
  Mark(copies_ / L"ORMEX.chm", kFromTheInternet);
  const auto copy = Viewable();
  EXPECT_TRUE(!copy || !IsRefusedByViewer(*copy));
}

TEST_F(NativeHelpFile, CopiesLieInTheUsersOwnFolder) {
  const std::wstring folder = HelpCopyFolder();
  EXPECT_TRUE(folder.ends_with(L"\\User Administration\\Help"));
  EXPECT_FALSE(IsRefusedByViewer(folder));
}

}  // namespace
}  // namespace controls
