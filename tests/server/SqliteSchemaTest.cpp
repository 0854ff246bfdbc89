#include "ServerTest.h"
#include "data/MSQLStatement.h"

// What only the embedded database has, asked in its own words.
namespace server_test {
namespace {

using SqliteSchema = OnSample;
using test_support::Sample;

TEST_F(SqliteSchema, IsSound) {
  test_support::RawDatabase raw = sample_.Raw();
  EXPECT_EQ(raw.Text("pragma integrity_check"), "ok");
  EXPECT_TRUE(raw.Rows("pragma foreign_key_check").empty());
}

TEST_F(SqliteSchema, TablesHaveTheirColumnsInTheirOrder) {
  test_support::RawDatabase raw = sample_.Raw();
  const auto columns = [&](const std::string& table) {
    return raw.Text("select group_concat(name, ' ') from pragma_table_info('" + table + "')");
  };
  EXPECT_EQ(columns("qruser"), "USERID NAME FULLNAME PASSWORD VFLG");
  EXPECT_EQ(columns("qrgroup"), "GROUPID NAME DESCR VFLG");
  EXPECT_EQ(columns("qrusgp"), "USERID GROUPID");
  EXPECT_EQ(columns("qruprm"), "USERID PERMID");
  EXPECT_EQ(columns("qrgprm"), "GROUPID PERMID");
  EXPECT_EQ(columns("qruserv"), "USERID NAME FULLNAME PASSWORD");
  EXPECT_EQ(columns("qrgroupv"), "GROUPID NAME DESCR");
  EXPECT_EQ(columns("qrusgpv"), "USERID GROUPID");
}

TEST_F(SqliteSchema, LinksAreFoundThroughAnIndexFromBothSides) {
  test_support::RawDatabase raw = sample_.Raw();
  const std::string conditions[] = {"qrusgp where userid = 1",  "qrusgp where groupid = 1",
                                    "qruprm where userid = 1",  "qruprm where permid = 1",
                                    "qrgprm where groupid = 1", "qrgprm where permid = 1",
                                    "qruser where name = 'x'",  "qrgroup where name = 'x'"};
  for (const std::string& condition : conditions) {
    const auto plan = raw.Rows("explain query plan select * from " + condition);
    EXPECT_EQ(plan[0][3].substr(0, 6), "SEARCH") << condition;
  }
}

using SqliteValues = OnSample;

TEST_F(SqliteValues, AreStoredAsTheirColumnsKind) {
  const auto set = connection_->OpenResultSet(data::SqlSelectUser(900));
  set->AddNew();
  set->SetColumn(L"USERID", std::wstring(L" 900 "));
  set->SetColumn(L"NAME", 12);
  set->Update();
  EXPECT_EQ(
      sample_.Raw().Rows("select typeof(userid), typeof(name) from qruser where userid = 900"),
      (std::vector<std::vector<std::string>>{{"integer", "text"}}));
}

TEST_F(SqliteValues, MalformedTextInTheFileIsReadAsReplacementLetters) {
  sample_.Raw().Execute(
      "update qruser set fullname = cast(x'41C341FFC3' as text) where userid = 9");
  EXPECT_EQ(connection_->OpenResultSet(data::SqlSelectUser(Sample::kMartin))->Column(2).Text(),
            L"A\xFFFD"
            L"A\xFFFD\xFFFD");
}

}  // namespace
}  // namespace server_test
