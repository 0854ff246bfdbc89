#include "data/MSQLStatement.h"

#include <gtest/gtest.h>

#include <limits>

namespace data {
namespace {

TEST(MSQLStatement, UsersAreReadFromTheirView) {
  EXPECT_EQ(
      SqlSelectAllUsers(),
      L"SELECT QRUSERV.USERID,QRUSERV.NAME,QRUSERV.FULLNAME FROM QRUSERV ORDER BY QRUSERV.NAME");
  EXPECT_EQ(SqlSelectUser(17),
            L"SELECT QRUSERV.USERID, QRUSERV.NAME ,QRUSERV.FULLNAME, QRUSERV.PASSWORD FROM QRUSERV "
            L"WHERE QRUSERV.USERID = 17");
  EXPECT_EQ(SqlSelectGroupUsers(4),
            L"SELECT QRUSERV.USERID, QRUSERV.NAME ,QRUSERV.FULLNAME FROM QRUSERV,QRUSGP WHERE "
            L"QRUSERV.USERID = QRUSGP.USERID AND QRUSGP.GROUPID = 4");
}

TEST(MSQLStatement, GroupsAreReadFromTheirView) {
  EXPECT_EQ(SqlSelectAllGroups(),
            L"SELECT QRGROUPV.GROUPID,QRGROUPV.NAME ,QRGROUPV.DESCR  FROM QRGROUPV");
  EXPECT_EQ(SqlSelectGroup(4),
            L"SELECT QRGROUPV.GROUPID, QRGROUPV.NAME ,QRGROUPV.DESCR FROM QRGROUPV WHERE "
            L"QRGROUPV.GROUPID = 4");
  EXPECT_EQ(SqlSelectUserGroups(17),
            L"SELECT QRGROUPV.GROUPID, QRGROUPV.NAME ,QRGROUPV.DESCR FROM QRGROUPV , QRUSGP WHERE "
            L"QRGROUPV.GROUPID = QRUSGP.GROUPID AND QRUSGP.USERID =17");
}

TEST(MSQLStatement, ASoftDeleteFlagsTheRowAndAppendsTheIdentifierToTheName) {
  EXPECT_EQ(
      SqlMarkUserDeleted(L"Martin", 17),
      L"UPDATE QRUSER SET QRUSER.NAME = 'Martin(17)', QRUSER.VFLG = 'D' Where QRUSER.USERID = 17");
  EXPECT_EQ(SqlMarkGroupDeleted(L"Martin", 4),
            L"UPDATE QRGROUP SET QRGROUP.NAME = 'Martin(4)', QRGROUP.VFLG = 'D' Where "
            L"QRGROUP.GROUPID = 4");
}

TEST(MSQLStatement, MembershipsAreReadByUserByGroupAndByPair) {
  EXPECT_EQ(SqlSelectUserGroupIds(17),
            L"SELECT QRUSGP.GROUPID FROM QRUSGP WHERE QRUSGP.USERID = 17");
  EXPECT_EQ(SqlSelectGroupMemberships(4),
            L"SELECT  QRUSGP.GROUPID, QRUSGP.USERID FROM QRUSGP WHERE QRUSGP.GROUPID = 4");
  EXPECT_EQ(SqlSelectUserMemberships(17), L"SELECT  USERID ,GROUPID FROM QRUSGP WHERE USERID = 17");
  EXPECT_EQ(SqlSelectMembership(4, 17),
            L"SELECT QRUSGP.USERID, QRUSGP.GROUPID FROM QRUSGP WHERE GROUPID = 4 and USERID = 17");
}

TEST(MSQLStatement, MembershipsAreDeletedByUserByGroupAndByPair) {
  EXPECT_EQ(SqlDeleteMembership(4, 17),
            L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID = 4 and QRUSGP.USERID =17");
  EXPECT_EQ(SqlDeleteUserMemberships(17), L"DELETE FROM QRUSGP WHERE QRUSGP.USERID =17");
  EXPECT_EQ(SqlDeleteGroupMemberships(4), L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID = 4");
}

TEST(MSQLStatement, UserPermissionsAreReadAsIdsRowsAndNames) {
  EXPECT_EQ(SqlSelectUserPermIds(17), L"SELECT QRUPRM.PERMID FROM QRUPRM WHERE QRUPRM.USERID = 17");
  EXPECT_EQ(SqlSelectUserPermRows(17), L"SELECT * FROM QRUPRM WHERE QRUPRM.USERID = 17");
  EXPECT_EQ(SqlSelectUserPermission(17, 12),
            L"SELECT * FROM QRUPRM WHERE QRUPRM.USERID = 17 and QRUPRM.PERMID = 12");
  EXPECT_EQ(SqlSelectUserPermissionNames(17),
            L"SELECT QRPERM.PERMID, QRPERM.NAME FROM QRUPRM ,QRPERM WHERE QRPERM.PERMID = "
            L"QRUPRM.PERMID AND QRUPRM.USERID=17");
}

TEST(MSQLStatement, GroupPermissionsAreReadAsIdsRowsAndNames) {
  EXPECT_EQ(SqlSelectGroupPermIds(4), L"SELECT QRGPRM.PERMID FROM QRGPRM WHERE QRGPRM.GROUPID = 4");
  EXPECT_EQ(SqlSelectGroupPermRows(4),
            L"SELECT QRGPRM.GROUPID, QRGPRM.PERMID FROM QRGPRM WHERE QRGPRM.GROUPID = 4");
  EXPECT_EQ(SqlSelectGroupPermission(4, 12),
            L"SELECT * FROM QRGPRM WHERE QRGPRM.GROUPID = 4 and QRGPRM.PERMID = 12");
  EXPECT_EQ(SqlSelectGroupPermissionNames(4),
            L"SELECT QRPERM.PERMID, QRPERM.NAME FROM QRPERM,QRGPRM WHERE QRPERM.PERMID = "
            L"QRGPRM.PERMID AND QRGPRM.GROUPID=4");
}

TEST(MSQLStatement, InheritedPermissionsAndTheCatalogueAreRead) {
  EXPECT_EQ(SqlSelectInheritedPermissions(17),
            L"SELECT DISTINCT QRPERM.PERMID, QRPERM.NAME FROM QRUSGPV ,QRPERM, QRGPRM WHERE "
            L"(QRPERM.PERMID = QRGPRM.PERMID) AND (QRUSGPV.GROUPID = QRGPRM.GROUPID) AND "
            L"(QRUSGPV.USERID =17)");
  EXPECT_EQ(SqlSelectAllPermissions(), L"SELECT QRPERM.PERMID,QRPERM.NAME FROM QRPERM");
}

TEST(MSQLStatement, PermissionLinksAreDeletedWithThePermissionFirst) {
  EXPECT_EQ(SqlDeleteUserPermission(17, 12),
            L"DELETE FROM QRUPRM WHERE QRUPRM.PERMID = 12 and QRUPRM.USERID =17");
  EXPECT_EQ(SqlDeleteUserPermissions(17), L"DELETE FROM QRUPRM WHERE QRUPRM.USERID =17");
  EXPECT_EQ(SqlDeleteGroupPermission(4, 12),
            L"DELETE FROM QRGPRM WHERE QRGPRM.PERMID = 12 and QRGPRM.GROUPID =4");
  EXPECT_EQ(SqlDeleteGroupPermissions(4), L"DELETE FROM QRGPRM WHERE QRGPRM.GROUPID =4");
}

TEST(MSQLStatement, TheLookupsOfTheStartUpReadSessionsAndProtectedNames) {
  EXPECT_EQ(SqlSelectSessionUser(88), L"SELECT QRAUSR.USERID FROM QRAUSR WHERE QRAUSR.SESID= 88");
  EXPECT_EQ(SqlSelectAdminUser(), L"SELECT QRUSER.USERID FROM QRUSER WHERE QRUSER.NAME = 'Admin'");
  EXPECT_EQ(SqlSelectProtectedGroups(),
            L"SELECT QRGROUP.GROUPID, QRGROUP.NAME FROM QRGROUP WHERE (QRGROUP.NAME = 'Everyone') "
            L"OR (QRGROUP.NAME = 'Administrators')");
  EXPECT_EQ(SqlSelectGroupByName(L"Everyone"),
            L"SELECT QRGROUPV.GROUPID FROM QRGROUPV WHERE QRGROUPV.NAME = 'Everyone'");
}

TEST(MSQLStatement, DeletingAllUsersOfAGroupLeavesAPlaceForTheSign) {
  EXPECT_EQ(SqlDeleteAllGroupUsers(17), L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID =  17");
  EXPECT_EQ(SqlDeleteAllGroupUsers(0), L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID =  0");
  EXPECT_EQ(SqlDeleteAllGroupUsers(-5), L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID = -5");
}

TEST(MSQLStatement, DeletingAUserPermissionPutsItsFirstArgumentLast) {
  EXPECT_EQ(SqlDeleteUserPermission(5, 12),
            L"DELETE FROM QRUPRM WHERE QRUPRM.PERMID = 12 and QRUPRM.USERID =5");
}

TEST(MSQLStatement, InheritedPermissionsEndInAClosedComparison) {
  const std::wstring statement = SqlSelectInheritedPermissions(3);
  const std::wstring end = L"(QRUSGPV.USERID =3)";
  ASSERT_GT(statement.size(), end.size());
  EXPECT_EQ(statement.substr(statement.size() - end.size()), end);
}

TEST(MSQLStatement, AQuoteInANameIsInsertedAsItIs) {
  EXPECT_EQ(
      SqlMarkUserDeleted(L"O'Neil", 3),
      L"UPDATE QRUSER SET QRUSER.NAME = 'O'Neil(3)', QRUSER.VFLG = 'D' Where QRUSER.USERID = 3");
}

TEST(MSQLStatement, TheNameToDeleteIsTakenAsItIsPassed) {
  EXPECT_EQ(SqlMarkGroupDeleted(L" Labo ", 4),
            L"UPDATE QRGROUP SET QRGROUP.NAME = ' Labo (4)', QRGROUP.VFLG = 'D' Where "
            L"QRGROUP.GROUPID = 4");
}

TEST(MSQLStatement, ASecondDeletionAppendsTheIdentifierAgain) {
  EXPECT_EQ(SqlMarkUserDeleted(L"Martin(17)", 17),
            L"UPDATE QRUSER SET QRUSER.NAME = 'Martin(17)(17)', QRUSER.VFLG = 'D' Where "
            L"QRUSER.USERID = 17");
}

TEST(MSQLStatement, IdentifiersStandAsPlainDecimalTextOverTheirWholeRange) {
  EXPECT_EQ(SqlDeleteUserMemberships(std::numeric_limits<std::int32_t>::max()),
            L"DELETE FROM QRUSGP WHERE QRUSGP.USERID =2147483647");
  EXPECT_EQ(SqlDeleteUserMemberships(std::numeric_limits<std::int32_t>::min()),
            L"DELETE FROM QRUSGP WHERE QRUSGP.USERID =-2147483648");
}

}  // namespace
}  // namespace data
