#include <algorithm>

#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"

namespace server_test {
namespace {

using test_support::Sample;

// A statement of the program, how many columns it has, and what the bare library is asked for the
// same rows, in its own words and past the views.
struct CatalogueCase {
  std::wstring statement;
  int columns;
  std::string raw;
};

const CatalogueCase kSelections[] = {
    {data::SqlSelectAllUsers(), 3,
     "select userid, name, coalesce(fullname, '') from qruser where vflg = ''"},
    {data::SqlSelectUser(Sample::kMartin), 3,
     "select userid, name, fullname from qruser where userid = 9 and vflg = ''"},
    {data::SqlSelectUser(Sample::kGarnier), 3, "select 1 from qruser where 1 = 0"},
    {data::SqlSelectUser(-1), 3, "select 1 from qruser where 1 = 0"},
    {data::SqlSelectGroupUsers(Sample::kProduction), 3,
     "select u.userid, u.name, u.fullname from qruser u join qrusgp l on l.userid = u.userid"
     " where l.groupid = 7 and u.vflg = ''"},
    {data::SqlSelectAllGroups(), 3, "select groupid, name, coalesce(descr, '') from qrgroup"},
    {data::SqlSelectGroup(Sample::kQualite), 3,
     "select groupid, name, descr from qrgroup where groupid = 6"},
    {data::SqlSelectUserGroups(Sample::kMartin), 3,
     "select groupid, name, coalesce(descr, '') from qrgroup where groupid in"
     " (select groupid from qrusgp where userid = 9)"},
    {data::SqlSelectUserGroupIds(Sample::kMartin), 1,
     "select groupid from qrusgp where userid = 9"},
    {data::SqlSelectGroupMemberships(Sample::kQualite), 2,
     "select groupid, userid from qrusgp where groupid = 6"},
    {data::SqlSelectUserMemberships(Sample::kMartin), 2,
     "select userid, groupid from qrusgp where userid = 9"},
    {data::SqlSelectMembership(Sample::kProduction, Sample::kMartin), 2, "select 9, 7"},
    {data::SqlSelectMembership(Sample::kQualite, Sample::kMartin), 2,
     "select 1 from qruser where 1 = 0"},
    {data::SqlSelectUserPermIds(Sample::kMartin), 1, "select permid from qruprm where userid = 9"},
    {data::SqlSelectUserPermRows(Sample::kMartin), 2,
     "select userid, permid from qruprm where userid = 9"},
    {data::SqlSelectUserPermission(Sample::kMartin, Sample::kReadings), 2, "select 9, 20"},
    {data::SqlSelectUserPermissionNames(Sample::kMartin), 2,
     "select permid, name from qrperm where permid in (select permid from qruprm where userid = "
     "9)"},
    {data::SqlSelectInheritedPermissions(Sample::kMartin), 2,
     "select permid, name from qrperm where permid in (select permid from qrgprm where groupid in"
     " (select groupid from qrusgp where userid = 9))"},
    {data::SqlSelectInheritedPermissions(Sample::kGarnier), 2, "select 1 from qruser where 1 = 0"},
    {data::SqlSelectGroupPermIds(Sample::kQualite), 1,
     "select permid from qrgprm where groupid = 6"},
    {data::SqlSelectGroupPermRows(Sample::kQualite), 2,
     "select groupid, permid from qrgprm where groupid = 6"},
    {data::SqlSelectGroupPermission(Sample::kQualite, Sample::kReleasing), 2, "select 6, 21"},
    {data::SqlSelectGroupPermissionNames(Sample::kQualite), 2,
     "select permid, name from qrperm where permid in (select permid from qrgprm where groupid = "
     "6)"},
    {data::SqlSelectAllPermissions(), 2, "select permid, name from qrperm"},
    {data::SqlSelectAdminUser(), 1, "select 1"},
    {data::SqlSelectProtectedGroups(), 2,
     "select groupid, name from qrgroup where groupid in (1, 2)"},
    {data::SqlSelectGroupByName(L"Everyone"), 1, "select 2"},
};

struct CatalogueChange {
  std::wstring statement;
  std::int32_t affected;
  // Counts what must be gone, in the bare library's words.
  std::string left;
};

const CatalogueChange kChanges[] = {
    {data::SqlDeleteMembership(Sample::kProduction, Sample::kMartin), 1,
     "select count(*) from qrusgp where groupid = 7 and userid = 9"},
    {data::SqlDeleteMembership(Sample::kQualite, Sample::kMartin), 0,
     "select count(*) from qrusgp where groupid = 6 and userid = 9"},
    {data::SqlDeleteUserMemberships(Sample::kMartin), 3,
     "select count(*) from qrusgp where userid = 9"},
    {data::SqlDeleteGroupMemberships(Sample::kQualite), 4,
     "select count(*) from qrusgp where groupid = 6"},
    {data::SqlDeleteAllGroupUsers(Sample::kQualite), 4,
     "select count(*) from qrusgp where groupid = 6"},
    {data::SqlDeleteUserPermission(Sample::kMartin, Sample::kReadings), 1,
     "select count(*) from qruprm where userid = 9 and permid = 20"},
    {data::SqlDeleteUserPermissions(Sample::kMartin), 2,
     "select count(*) from qruprm where userid = 9"},
    {data::SqlDeleteGroupPermission(Sample::kQualite, Sample::kReleasing), 1,
     "select count(*) from qrgprm where groupid = 6 and permid = 21"},
    {data::SqlDeleteGroupPermissions(Sample::kQualite), 6,
     "select count(*) from qrgprm where groupid = 6"},
};

Rows Expected(test_support::RawDatabase& raw, const std::string& sql) {
  Rows rows;
  for (const auto& row : raw.Rows(sql)) {
    auto& texts = rows.emplace_back();
    for (const std::string& text : row) texts.push_back(data::FromUtf8(text));
  }
  return rows;
}

using Catalogue = OnSample;

TEST_F(Catalogue, EverySelectionGivesTheRowsThatTheTablesHold) {
  test_support::RawDatabase raw = sample_.Raw();
  for (const CatalogueCase& entry : kSelections) {
    Rows read = Read(entry.statement, entry.columns);
    Rows expected = Expected(raw, entry.raw);
    // In which order they come is another question; see NameOrderTest.cpp.
    std::sort(read.begin(), read.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(read, expected) << data::ToUtf8(entry.statement);
  }
}

TEST_F(Catalogue, EverySelectionGivesTheSameRowsWhenItIsOpenedAgain) {
  for (const CatalogueCase& entry : kSelections) {
    const Rows first = Read(entry.statement, entry.columns);
    EXPECT_EQ(Read(entry.statement, entry.columns), first) << data::ToUtf8(entry.statement);
  }
}

TEST(CatalogueChanges, EveryDeletionTakesItsRowsAndNoOthers) {
  for (const CatalogueChange& entry : kChanges) {
    test_support::SampleDatabase sample;
    const auto server = sample.OpenServer();
    const auto connection = server->DatabaseConnection();
    const std::string all =
        "select (select count(*) from qrusgp) + (select count(*) from qruprm)"
        " + (select count(*) from qrgprm)";
    const std::int64_t before = sample.Raw().Number(all);
    EXPECT_EQ(connection->Execute(entry.statement), entry.affected)
        << data::ToUtf8(entry.statement);
    EXPECT_EQ(sample.Raw().Number(entry.left), 0) << data::ToUtf8(entry.statement);
    EXPECT_EQ(sample.Raw().Number(all), before - entry.affected);
  }
}

TEST_F(Catalogue, TheSessionUserIsFoundWhileTheSessionIsOpen) {
  const std::int64_t session = sample_.Raw().Number("select sesid from qrausr");
  const auto statement = data::SqlSelectSessionUser(static_cast<std::int32_t>(session));
  EXPECT_EQ(Read(statement, 1), (Rows{{L"1"}}));
}

TEST_F(Catalogue, ColumnsAreNumbersAndTextsAsTheTablesHaveThem) {
  const auto set = connection_->OpenResultSet(data::SqlSelectUser(Sample::kBlanc));
  EXPECT_EQ(set->Column(0).Integer(), 20);
  EXPECT_EQ(set->Column(1).Text(), L"Blanc");
  EXPECT_TRUE(set->Column(2).IsNull());
  EXPECT_FALSE(set->Column(3).IsNull());
}

TEST_F(Catalogue, AnEmptyFullNameIsNoNull) {
  const auto set = connection_->OpenResultSet(data::SqlSelectUser(Sample::kMercier));
  EXPECT_FALSE(set->Column(2).IsNull());
  EXPECT_TRUE(set->Column(2).IsNullOrEmpty());
}

}  // namespace
}  // namespace server_test
