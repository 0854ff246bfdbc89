#include "app/JournalFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "data/Text.h"

namespace app {
namespace {

using namespace std::chrono;

// A folder with a journal of two months.
class JournalFiles : public ::testing::Test {
 protected:
  JournalFiles() {
    std::filesystem::create_directories(folder);
    for (int day = 1; day <= 3; ++day) Append("journal-2026-10.jsonl", Line(2026y / 10 / day));
    for (int day = 1; day <= 3; ++day) Append("journal-2026-11.jsonl", Line(2026y / 11 / day));
  }
  ~JournalFiles() override { std::filesystem::remove_all(folder); }

  // Its words are the day.
  static std::string Line(sys_days day) {
    const year_month_day date(day);
    JournalEntry entry;
    entry.what = data::Decimal(static_cast<unsigned>(date.month())) + L"/" +
                 data::Decimal(static_cast<unsigned>(date.day()));
    return JournalLine(JournalTime(day), {}, entry);
  }
  void Append(const char* name, const std::string& bytes) {
    std::ofstream(folder / name, std::ios::binary | std::ios::app) << bytes;
  }
  JournalContent Read(const JournalBounds& bounds = {}) const {
    return ReadJournal(folder.wstring(), bounds);
  }
  static std::vector<std::wstring> Days(const JournalContent& content) {
    std::vector<std::wstring> days;
    for (const JournalRecord& record : content.records) days.push_back(record.what);
    return days;
  }
  using Texts = std::vector<std::wstring>;
  const Texts all = {L"11/3", L"11/2", L"11/1", L"10/3", L"10/2", L"10/1"};

  std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                 ("uadmin journal " + std::to_string(std::random_device()()));
};

TEST_F(JournalFiles, AreReadFromTheLastLineToTheFirst) {
  const JournalContent content = Read();
  EXPECT_EQ(Days(content), all);
  EXPECT_EQ(content.unreadable, 0);
  EXPECT_FALSE(content.hasMore || content.failed);
}

TEST_F(JournalFiles, AreReadNoFurtherThanAskedFor) {
  for (std::size_t most = 0; most <= all.size(); ++most) {
    const JournalContent content = Read({.records = most});
    EXPECT_EQ(Days(content), Texts(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(most)));
    EXPECT_EQ(content.hasMore, most < all.size()) << most;
  }
}

// Wherever the bytes end, what is read are whole lines, and the latest ones.
TEST_F(JournalFiles, AreReadNoFurtherThanTheBytesGo) {
  const auto size = static_cast<std::int64_t>(Line(2026y / 11 / 1).size());
  for (std::int64_t bytes = 0; bytes <= 6 * size; ++bytes) {
    const JournalContent content = Read({.bytes = bytes});
    const Texts days = Days(content);
    EXPECT_TRUE(std::equal(days.begin(), days.end(), all.begin())) << bytes;
    EXPECT_EQ(content.unreadable, 0) << bytes;
    EXPECT_EQ(content.hasMore, days.size() < all.size()) << bytes;
    EXPECT_LE(static_cast<std::int64_t>(days.size()), bytes / size);
    EXPECT_GE(static_cast<std::int64_t>(days.size()) + 2, bytes / size);
  }
  EXPECT_EQ(Read({.bytes = 6 * size}).records.size(), all.size());
}

TEST_F(JournalFiles, LinesThatAreNoneAreCountedAndPassedOver) {
  const std::string whole = Line(2026y / 11 / 4);
  Append("journal-2026-11.jsonl", whole.substr(0, 40) + "\n" + whole + "\n\xFF\xFE\n{}\n");
  Append("journal-2026-11.jsonl", whole.substr(0, 30));
  const JournalContent content = Read();
  EXPECT_EQ(content.records.size(), all.size() + 1);
  EXPECT_EQ(content.records.front().what, L"11/4");
  EXPECT_EQ(content.unreadable, 4);
  EXPECT_FALSE(content.hasMore || content.failed);
}

TEST_F(JournalFiles, OfAnotherNameAreNoneOfIt) {
  for (const char* name : {"journal-2026-12.jsonl.bak", "journal-26-12.jsonl", "other.jsonl",
                           "journal-2026-12.json", "xjournal-2026-12.jsonl"}) {
    Append(name, Line(2026y / 12 / 1));
  }
  EXPECT_EQ(Days(Read()), all);
}

TEST_F(JournalFiles, OfMachinesWhoseClocksDifferAreInTheOrderOfTheirTimes) {
  Append("journal-2026-11.jsonl", Line(2026y / 11 / 2));
  EXPECT_EQ(Days(Read()), (Texts{L"11/3", L"11/2", L"11/2", L"11/1", L"10/3", L"10/2", L"10/1"}));
}

TEST_F(JournalFiles, WithoutTheirFolderAreAnEmptyJournal) {
  std::filesystem::remove_all(folder);
  const JournalContent content = Read();
  EXPECT_TRUE(content.records.empty());
  EXPECT_FALSE(content.hasMore || content.failed);
}

TEST_F(JournalFiles, ThatCannotBeReadAreToldWithTheOthersRead) {
  std::filesystem::create_directories(folder / "journal-2026-12.jsonl");
  const JournalContent content = Read();
  EXPECT_EQ(Days(content), all);
  EXPECT_TRUE(content.failed);
}

TEST_F(JournalFiles, WithAFileInPlaceOfTheirFolderAreToldToBeUnreadable) {
  std::filesystem::remove_all(folder);
  std::ofstream(folder) << "a file";
  EXPECT_TRUE(Read().failed);
  EXPECT_TRUE(Read().records.empty());
}

}  // namespace
}  // namespace app
