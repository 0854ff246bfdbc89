#include "app/JournalLine.h"

#include <gtest/gtest.h>

#include <string>

namespace app {
namespace {

using data::Table;
using data::Write;
using namespace std::chrono;

JournalTime At(sys_days day, milliseconds clock) {
  return JournalTime(day) + clock;
}

// The 22nd of November 2026, 5:06:07 and 89 thousandths.
const JournalTime kTime = At(2026y / 11 / 22, 5h + 6min + 7s + 89ms);
const std::string kBeginning =
    R"({"time":"2026-11-22T05:06:07.089Z","computer":"PC","user":"D\\u",)"
    R"("session":"Admin",)";

std::string Line(const JournalEntry& entry) {
  const std::string line = JournalLine(kTime, {L"PC", L"D\\u", L"Admin"}, entry);
  EXPECT_TRUE(line.starts_with(kBeginning)) << line;
  return line.substr(std::min(line.size(), kBeginning.size()));
}

Write Link(std::int32_t user, std::int32_t group) {
  return {
      Write::Kind::kAdded, Table::kMemberships, {}, {{L"USERID", user}, {L"GROUPID", group}}, 1};
}

TEST(JournalLine, ALinkRemovedIsNamedByItsIdentifiers) {
  JournalEntry entry;
  entry.what = L"Martin ne fait plus partie du groupe Qualit\xE9";
  entry.account = {Table::kUsers, 9, L"Martin"};
  entry.writes = {
      {Write::Kind::kRemoved, Table::kMemberships, {{L"GROUPID", 6}, {L"USERID", 9}}, {}, 1}};
  EXPECT_EQ(Line(entry),
            "\"what\":\"Martin ne fait plus partie du groupe Qualit\xC3\xA9\",\"complete\":true,"
            R"("account":{"kind":"user","id":9,"name":"Martin"},"rows":1,)"
            R"("changes":[{"change":"removed","kind":"membership","group":6,"user":9,"rows":1}]})"
            "\n");
}

TEST(JournalLine, LinksAddedToOneAccountStandTogether) {
  JournalEntry entry;
  entry.writes = {Link(9, 6), Link(9, 7), Link(15, 7)};
  EXPECT_EQ(Line(entry),
            R"("what":"","complete":true,"rows":3,"changes":[)"
            R"({"change":"added","kind":"membership","user":9,"groups":[6,7],"rows":2},)"
            R"({"change":"added","kind":"membership","user":15,"groups":[7],"rows":1}]})"
            "\n");
}

TEST(JournalLine, AnAccountIsWrittenWithItsNamesAndWithNothingElse) {
  JournalEntry entry;
  entry.writes = {{Write::Kind::kChanged,
                   Table::kUsers,
                   {{L"USERID", 9}},
                   {{L"NAME", L"Zola"}, {L"FULLNAME", {}}, {L"BADGE", L"1234"}},
                   1}};
  EXPECT_EQ(
      Line(entry),
      R"("what":"","complete":true,"rows":1,"changes":[)"
      R"({"change":"changed","kind":"user","user":9,"name":"Zola","fullName":null,"rows":1}]})"
      "\n");
}

TEST(JournalLine, AnErrorIsToldWithWhatWasDoneBeforeIt) {
  JournalEntry entry;
  entry.complete = false;
  entry.writes = {Link(9, 6)};
  entry.error = {-2147217900, L"verrouill\xE9"};
  const std::string line = Line(entry);
  EXPECT_NE(line.find("\"complete\":false"), std::string::npos);
  EXPECT_NE(line.find("\"error\":{\"number\":-2147217900,\"text\":\"verrouill\xC3\xA9\"}"),
            std::string::npos);
}

TEST(JournalLine, RowsThatAreNotKnownAreNull) {
  JournalEntry entry;
  entry.writes = {Link(9, 6),
                  {Write::Kind::kRemoved, Table::kMemberships, {{L"USERID", 9}}, {}, -1}};
  EXPECT_NE(Line(entry).find("\"rows\":null"), std::string::npos);
}

TEST(JournalLine, NoNameBreaksTheLine) {
  JournalEntry entry;
  entry.account = {Table::kGroups, 7, L"a\"b\\c\r\n\t\x01\x7F</script>\x2028\xD83D"};
  EXPECT_NE(Line(entry).find("\"name\":\"a\\\"b\\\\c\\u000d\\u000a\\u0009\\u0001\\u007f</script>"
                             "\xE2\x80\xA8\xEF\xBF\xBD\""),
            std::string::npos);
}

TEST(JournalLine, TheFileIsThatOfTheMonthInUniversalTime) {
  EXPECT_EQ(JournalFileName(At(2026y / 11 / 30, 23h + 59min + 59s + 999ms)),
            L"journal-2026-11.jsonl");
  EXPECT_EQ(JournalFileName(At(2026y / 12 / 1, 0ms)), L"journal-2026-12.jsonl");
}

}  // namespace
}  // namespace app
