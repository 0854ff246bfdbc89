#include "controls/AppendToFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace controls {
namespace {

// A folder of its own that goes with the test.
class AppendToFileTest : public ::testing::Test {
 protected:
  AppendToFileTest()
      : folder(std::filesystem::temp_directory_path() /
               ("uadmin-append-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directory(folder);
  }
  ~AppendToFileTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }

  std::string Content(const std::filesystem::path& path) const {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path folder;
};

TEST_F(AppendToFileTest, FileAndFoldersAreMadeAndBytesAddedAsTheyAre) {
  const std::filesystem::path deep = folder / "a" / "b c";
  const std::string bytes("\xC3\xA9\r\n\0\n", 6);
  EXPECT_TRUE(AppendToFile(deep.wstring(), L"f.txt", "first\n"));
  EXPECT_TRUE(AppendToFile(deep.wstring(), L"f.txt", bytes));
  EXPECT_EQ(Content(deep / "f.txt"), "first\n" + bytes);
}

TEST_F(AppendToFileTest, AFileWhereTheFolderShouldBeIsLeftAlone) {
  std::ofstream(folder / "taken") << "mine";
  EXPECT_FALSE(AppendToFile((folder / "taken").wstring(), L"f.txt", "x"));
  EXPECT_FALSE(AppendToFile(folder.wstring() + L"\\taken\\below", L"f.txt", "x"));
  EXPECT_EQ(Content(folder / "taken"), "mine");
}

TEST_F(AppendToFileTest, AFolderWhereTheFileShouldBeIsLeftAlone) {
  std::filesystem::create_directory(folder / "f.txt");
  EXPECT_FALSE(AppendToFile(folder.wstring(), L"f.txt", "x"));
  EXPECT_TRUE(std::filesystem::is_directory(folder / "f.txt"));
}

#ifndef _WIN32
TEST_F(AppendToFileTest, AFullDiskIsTold) {
  std::filesystem::create_symlink("/dev/full", folder / "f.txt");
  EXPECT_FALSE(AppendToFile(folder.wstring(), L"f.txt", "x"));
}
#endif

// What each writer has written stands there whole and in its order, whoever wrote in between.
TEST_F(AppendToFileTest, ManyWritersTearNoLine) {
  constexpr int kWriters = 8;
  constexpr int kLines = 50;
  std::atomic<int> failed = 0;
  std::vector<std::thread> writers;
  for (int writer = 0; writer < kWriters; ++writer) {
    writers.emplace_back([&, writer] {
      for (int line = 0; line < kLines; ++line) {
        const auto length = static_cast<std::size_t>(1 + (writer * 977 + line * 131) % 20'000);
        const std::string text = std::to_string(writer) + " " + std::to_string(line) + " " +
                                 std::string(length, static_cast<char>('a' + writer)) + "\n";
        if (!AppendToFile(folder.wstring(), L"f.txt", text)) ++failed;
      }
    });
  }
  for (std::thread& writer : writers) writer.join();
  EXPECT_EQ(failed, 0);
  std::ifstream file(folder / "f.txt", std::ios::binary);
  std::map<int, int> next;
  std::string text;
  int writer = 0;
  int line = 0;
  int lines = 0;
  for (; file >> writer >> line >> text; ++lines) {
    EXPECT_EQ(line, next[writer]++);
    EXPECT_EQ(text.size(), static_cast<std::size_t>(1 + (writer * 977 + line * 131) % 20'000));
    EXPECT_TRUE(std::ranges::all_of(text, [&](char c) { return c == 'a' + writer; }));
  }
  EXPECT_EQ(lines, kWriters * kLines);
}

}  // namespace
}  // namespace controls
