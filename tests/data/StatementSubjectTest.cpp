#include "data/StatementSubject.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "data/MSQLStatement.h"

namespace data {
namespace {

using Where = std::vector<std::pair<std::wstring, std::int32_t>>;
using Columns = std::vector<std::wstring>;

void Expect(const std::wstring& statement, Table table, const Where& where) {
  const StatementSubject subject = SubjectOf(statement);
  EXPECT_EQ(subject.table, table);
  EXPECT_EQ(subject.where, where);
}

TEST(StatementSubject, ADeletionNamesItsTableAndWhatItDeletes) {
  const std::pair<std::wstring, std::int32_t> user(L"USERID", 9);
  const std::pair<std::wstring, std::int32_t> group(L"GROUPID", 7);
  const std::pair<std::wstring, std::int32_t> permission(L"PERMID", 14);
  Expect(SqlDeleteMembership(7, 9), Table::kMemberships, {group, user});
  Expect(SqlDeleteUserMemberships(9), Table::kMemberships, {user});
  Expect(SqlDeleteGroupMemberships(7), Table::kMemberships, {group});
  Expect(SqlDeleteAllGroupUsers(7), Table::kMemberships, {group});
  Expect(SqlDeleteAllGroupUsers(-7), Table::kMemberships, {{L"GROUPID", -7}});
  Expect(SqlDeleteUserPermission(9, 14), Table::kUserPermissions, {permission, user});
  Expect(SqlDeleteUserPermissions(9), Table::kUserPermissions, {user});
  Expect(SqlDeleteGroupPermission(7, 14), Table::kGroupPermissions, {permission, group});
  Expect(SqlDeleteGroupPermissions(7), Table::kGroupPermissions, {group});
}

TEST(StatementSubject, NoNameOfAnAccountIsTakenForAPartOfTheStatement) {
  for (const wchar_t* name :
       {L"Martin", L"x' WHERE USERID = 5", L" Where QRUSER.USERID = 1 and GROUPID = 2",
        L"O'Brien = 3 AND ", L"QRGROUP", L"", L"= WHERE"}) {
    Expect(SqlMarkUserDeleted(name, 9), Table::kUsers, {{L"USERID", 9}});
    Expect(SqlMarkGroupDeleted(name, 7), Table::kGroups, {{L"GROUPID", 7}});
  }
}

TEST(StatementSubject, ASelectionOfRowsToWriteNamesItsColumnsInTheirOrder) {
  const auto columns = [](const std::wstring& statement) { return SubjectOf(statement).columns; };
  EXPECT_EQ(columns(SqlSelectUser(9)), (Columns{L"USERID", L"NAME", L"FULLNAME", L"PASSWORD"}));
  EXPECT_EQ(columns(SqlSelectGroup(7)), (Columns{L"GROUPID", L"NAME", L"DESCR"}));
  EXPECT_EQ(columns(SqlSelectMembership(7, 9)), (Columns{L"USERID", L"GROUPID"}));
  EXPECT_EQ(columns(SqlSelectUserMemberships(9)), (Columns{L"USERID", L"GROUPID"}));
  EXPECT_EQ(columns(SqlSelectGroupMemberships(7)), (Columns{L"GROUPID", L"USERID"}));
  EXPECT_EQ(columns(SqlSelectUserPermRows(9)), (Columns{L"USERID", L"PERMID"}));
  EXPECT_EQ(columns(SqlSelectUserPermission(9, 14)), (Columns{L"USERID", L"PERMID"}));
  EXPECT_EQ(columns(SqlSelectGroupPermRows(7)), (Columns{L"GROUPID", L"PERMID"}));
  EXPECT_EQ(columns(SqlSelectGroupPermission(7, 14)), (Columns{L"GROUPID", L"PERMID"}));
}

TEST(StatementSubject, ASelectionOfRowsToWriteNamesItsTableAndRows) {
  Expect(SqlSelectUser(9), Table::kUsers, {{L"USERID", 9}});
  Expect(SqlSelectGroup(7), Table::kGroups, {{L"GROUPID", 7}});
  Expect(SqlSelectMembership(7, 9), Table::kMemberships, {{L"GROUPID", 7}, {L"USERID", 9}});
  Expect(SqlSelectUserPermRows(9), Table::kUserPermissions, {{L"USERID", 9}});
  Expect(SqlSelectGroupPermRows(7), Table::kGroupPermissions, {{L"GROUPID", 7}});
}

TEST(StatementSubject, OfWhatIsNoStatementOfTheProgramNothingIsMadeUp) {
  for (const wchar_t* text :
       {L"", L"SELECT ", L"SELECT * FROM ", L"DELETE FROM", L"UPDATE ", L"DROP TABLE QRUSER",
        L"SELECT A FROM QRUSERX WHERE = and =1 and B = and C = x",
        L"DELETE FROM QRUSERVV WHERE "}) {
    Expect(text, Table::kOther, {});
  }
}

}  // namespace
}  // namespace data
