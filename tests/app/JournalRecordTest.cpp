#include "app/JournalRecord.h"

#include <gtest/gtest.h>

#include <string>

namespace app {
namespace {

using data::Table;
using data::Write;
using namespace std::chrono;

const JournalTime kMoment = JournalTime(sys_days(2026y / 11 / 22)) + 5h + 6min + 7s + 89ms;
const JournalAuthor kWriter = {L"PC", L"D\\u", L"Admin \"1\""};

// A removal of two links at the command for a user, which an error has ended.
JournalEntry Failed() {
  JournalEntry entry;
  entry.what = L"Œuvre";
  entry.complete = false;
  entry.account = {Table::kUsers, 9, L"Martin"};
  entry.writes = {{Write::Kind::kRemoved, Table::kMemberships, {{L"USERID", 9}}, {}, 2}};
  entry.error = {1234, L"un\ndeux"};
  return entry;
}

// A new user, who has no account before it.
JournalEntry Created() {
  JournalEntry entry;
  entry.what = L"Utilisateur Zola créé";
  const Write::Field name{L"NAME", std::wstring(L"Zola")};
  entry.writes = {{Write::Kind::kAdded, Table::kUsers, {}, {{L"USERID", 40}, name}, 1}};
  return entry;
}

TEST(JournalRecord, GivesBackWhatALineWasMadeFrom) {
  const auto record = ReadJournalLine(JournalLine(kMoment, kWriter, Failed()));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->time, kMoment);
  EXPECT_EQ(record->author.computer, kWriter.computer);
  EXPECT_EQ(record->author.user, kWriter.user);
  EXPECT_EQ(record->author.session, kWriter.session);
  EXPECT_EQ(record->what, L"Œuvre");
  EXPECT_EQ(record->account, L"Martin");
  EXPECT_EQ(record->rows, 2);
  ASSERT_TRUE(record->error);
  EXPECT_EQ(record->error->number, 1234);
  EXPECT_EQ(record->error->text, L"un\ndeux");
}

TEST(JournalRecord, NamesANewAccountByWhatWasWritten) {
  const auto record = ReadJournalLine(JournalLine(kMoment, kWriter, Created()));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->account, L"Zola");
  EXPECT_FALSE(record->error);
}

TEST(JournalRecord, KnowsNoRowsWhereTheyAreNotKnown) {
  JournalEntry entry = Created();
  entry.writes[0].rows = -1;
  const auto record = ReadJournalLine(JournalLine(kMoment, kWriter, entry));
  ASSERT_TRUE(record);
  EXPECT_FALSE(record->rows);
}

// Wherever it is torn, and whatever of it is left.
TEST(JournalRecord, ReadsNoPartOfALine) {
  const std::string line = JournalLine(kMoment, kWriter, Failed());
  ASSERT_TRUE(ReadJournalLine(line));
  for (std::size_t length = 0; length + 1 < line.size(); ++length) {
    EXPECT_FALSE(ReadJournalLine(line.substr(0, length))) << length;
  }
  for (std::size_t begin = 1; begin < line.size(); ++begin) {
    EXPECT_FALSE(ReadJournalLine(line.substr(begin))) << begin;
  }
}

TEST(JournalRecord, ReadsNothingThatTheJournalHasNotWritten) {
  const auto with = [](std::string_view time) {
    return R"({"time":")" + std::string(time) + R"(","what":"x","changes":[]})";
  };
  EXPECT_TRUE(ReadJournalLine(with("2026-11-22T05:06:07.089Z")));
  for (const char* time :
       {"", "2026-11-22", "2026-11-22T05:06:07.089", "2026-13-22T05:06:07.089Z",
        "2026-02-29T05:06:07.089Z", "2026-11-22T25:06:07.089Z", "2026-11-22T05:99:07.089Z",
        "9999-11-22T05:06:07.089Z", "0000-00-00T00:00:00.000Z", "2026-11-22 05:06:07.089Z"}) {
    EXPECT_FALSE(ReadJournalLine(with(time))) << time;
  }
  for (const char* line : {"", "null", "[]", "{}", R"({"time":"2026-11-22T05:06:07.089Z"})",
                           R"({"time":"2026-11-22T05:06:07.089Z","what":"x"})",
                           R"({"time":1,"what":"x","changes":[]})",
                           R"({"time":"2026-11-22T05:06:07.089Z","what":["x"],"changes":[]})"}) {
    EXPECT_FALSE(ReadJournalLine(line)) << line;
  }
}

TEST(JournalRecord, PassesOverWhatItDoesNotKnow) {
  EXPECT_TRUE(ReadJournalLine(
      R"({"later":{"a":[1,{"b":null}]},"time":"2026-11-22T05:06:07.089Z","what":"x","changes":[{"z":2}]})"));
}

}  // namespace
}  // namespace app
