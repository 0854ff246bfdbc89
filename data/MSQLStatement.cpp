#include "data/MSQLStatement.h"

#include "data/Text.h"

namespace data {
namespace {

// Room for two identifiers and what stands between them, so that a statement is composed in place.
constexpr std::size_t kRoomForNumbers = 64;

std::wstring With(std::wstring_view text, std::int32_t id) {
  std::wstring statement;
  statement.reserve(text.size() + kRoomForNumbers);
  statement = text;
  statement += Decimal(id);
  return statement;
}

std::wstring With(std::wstring_view text, std::int32_t first, std::wstring_view between,
                  std::int32_t second) {
  std::wstring statement = With(text, first);
  statement += between;
  statement += Decimal(second);
  return statement;
}

// The name that a deleted account is given, as a quoted text.
std::wstring QuotedDeletedName(std::wstring_view name, std::int32_t id) {
  std::wstring quoted = L"'";
  quoted += name;
  quoted += L"(" + Decimal(id) + L")'";
  return quoted;
}

}  // namespace

std::wstring SqlSelectAllUsers() {
  return L"SELECT QRUSERV.USERID,QRUSERV.NAME,QRUSERV.FULLNAME FROM QRUSERV ORDER BY QRUSERV.NAME";
}

std::wstring SqlSelectUser(std::int32_t userId) {
  return With(
      L"SELECT QRUSERV.USERID, QRUSERV.NAME ,QRUSERV.FULLNAME, QRUSERV.PASSWORD FROM QRUSERV"
      L" WHERE QRUSERV.USERID = ",
      userId);
}

std::wstring SqlSelectGroupUsers(std::int32_t groupId) {
  return With(
      L"SELECT QRUSERV.USERID, QRUSERV.NAME ,QRUSERV.FULLNAME FROM QRUSERV,QRUSGP"
      L" WHERE QRUSERV.USERID = QRUSGP.USERID AND QRUSGP.GROUPID = ",
      groupId);
}

std::wstring SqlMarkUserDeleted(std::wstring_view name, std::int32_t userId) {
  return With(L"UPDATE QRUSER SET QRUSER.NAME = " + QuotedDeletedName(name, userId) +
                  L", QRUSER.VFLG = 'D' Where QRUSER.USERID = ",
              userId);
}

std::wstring SqlSelectAllGroups() {
  return L"SELECT QRGROUPV.GROUPID,QRGROUPV.NAME ,QRGROUPV.DESCR  FROM QRGROUPV";
}

std::wstring SqlSelectGroup(std::int32_t groupId) {
  return With(
      L"SELECT QRGROUPV.GROUPID, QRGROUPV.NAME ,QRGROUPV.DESCR FROM QRGROUPV"
      L" WHERE QRGROUPV.GROUPID = ",
      groupId);
}

std::wstring SqlSelectUserGroups(std::int32_t userId) {
  return With(
      L"SELECT QRGROUPV.GROUPID, QRGROUPV.NAME ,QRGROUPV.DESCR FROM QRGROUPV , QRUSGP"
      L" WHERE QRGROUPV.GROUPID = QRUSGP.GROUPID AND QRUSGP.USERID =",
      userId);
}

std::wstring SqlMarkGroupDeleted(std::wstring_view name, std::int32_t groupId) {
  return With(L"UPDATE QRGROUP SET QRGROUP.NAME = " + QuotedDeletedName(name, groupId) +
                  L", QRGROUP.VFLG = 'D' Where QRGROUP.GROUPID = ",
              groupId);
}

std::wstring SqlSelectUserGroupIds(std::int32_t userId) {
  return With(L"SELECT QRUSGP.GROUPID FROM QRUSGP WHERE QRUSGP.USERID = ", userId);
}

std::wstring SqlSelectGroupMemberships(std::int32_t groupId) {
  return With(L"SELECT  QRUSGP.GROUPID, QRUSGP.USERID FROM QRUSGP WHERE QRUSGP.GROUPID = ",
              groupId);
}

std::wstring SqlSelectUserMemberships(std::int32_t userId) {
  return With(L"SELECT  USERID ,GROUPID FROM QRUSGP WHERE USERID = ", userId);
}

std::wstring SqlSelectMembership(std::int32_t groupId, std::int32_t userId) {
  return With(L"SELECT QRUSGP.USERID, QRUSGP.GROUPID FROM QRUSGP WHERE GROUPID = ", groupId,
              L" and USERID = ", userId);
}

std::wstring SqlDeleteMembership(std::int32_t groupId, std::int32_t userId) {
  return With(L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID = ", groupId, L" and QRUSGP.USERID =",
              userId);
}

std::wstring SqlDeleteUserMemberships(std::int32_t userId) {
  return With(L"DELETE FROM QRUSGP WHERE QRUSGP.USERID =", userId);
}

std::wstring SqlDeleteGroupMemberships(std::int32_t groupId) {
  return With(L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID = ", groupId);
}

std::wstring SqlDeleteAllGroupUsers(std::int32_t groupId) {
  const std::wstring_view signPlace = groupId < 0 ? L"" : L" ";
  return With(L"DELETE FROM QRUSGP WHERE QRUSGP.GROUPID = " + std::wstring(signPlace), groupId);
}

std::wstring SqlSelectUserPermIds(std::int32_t userId) {
  return With(L"SELECT QRUPRM.PERMID FROM QRUPRM WHERE QRUPRM.USERID = ", userId);
}

std::wstring SqlSelectUserPermRows(std::int32_t userId) {
  return With(L"SELECT * FROM QRUPRM WHERE QRUPRM.USERID = ", userId);
}

std::wstring SqlSelectUserPermission(std::int32_t userId, std::int32_t permId) {
  return With(L"SELECT * FROM QRUPRM WHERE QRUPRM.USERID = ", userId, L" and QRUPRM.PERMID = ",
              permId);
}

std::wstring SqlSelectUserPermissionNames(std::int32_t userId) {
  return With(
      L"SELECT QRPERM.PERMID, QRPERM.NAME FROM QRUPRM ,QRPERM"
      L" WHERE QRPERM.PERMID = QRUPRM.PERMID AND QRUPRM.USERID=",
      userId);
}

std::wstring SqlSelectInheritedPermissions(std::int32_t userId) {
  return With(
             L"SELECT DISTINCT QRPERM.PERMID, QRPERM.NAME FROM QRUSGPV ,QRPERM, QRGPRM"
             L" WHERE (QRPERM.PERMID = QRGPRM.PERMID) AND (QRUSGPV.GROUPID = QRGPRM.GROUPID)"
             L" AND (QRUSGPV.USERID =",
             userId) +
         L")";
}

std::wstring SqlDeleteUserPermission(std::int32_t userId, std::int32_t permId) {
  return With(L"DELETE FROM QRUPRM WHERE QRUPRM.PERMID = ", permId, L" and QRUPRM.USERID =",
              userId);
}

std::wstring SqlDeleteUserPermissions(std::int32_t userId) {
  return With(L"DELETE FROM QRUPRM WHERE QRUPRM.USERID =", userId);
}

std::wstring SqlSelectGroupPermIds(std::int32_t groupId) {
  return With(L"SELECT QRGPRM.PERMID FROM QRGPRM WHERE QRGPRM.GROUPID = ", groupId);
}

std::wstring SqlSelectGroupPermRows(std::int32_t groupId) {
  return With(L"SELECT QRGPRM.GROUPID, QRGPRM.PERMID FROM QRGPRM WHERE QRGPRM.GROUPID = ", groupId);
}

std::wstring SqlSelectGroupPermission(std::int32_t groupId, std::int32_t permId) {
  return With(L"SELECT * FROM QRGPRM WHERE QRGPRM.GROUPID = ", groupId, L" and QRGPRM.PERMID = ",
              permId);
}

std::wstring SqlSelectGroupPermissionNames(std::int32_t groupId) {
  return With(
      L"SELECT QRPERM.PERMID, QRPERM.NAME FROM QRPERM,QRGPRM"
      L" WHERE QRPERM.PERMID = QRGPRM.PERMID AND QRGPRM.GROUPID=",
      groupId);
}

std::wstring SqlSelectAllPermissions() {
  return L"SELECT QRPERM.PERMID,QRPERM.NAME FROM QRPERM";
}

std::wstring SqlDeleteGroupPermission(std::int32_t groupId, std::int32_t permId) {
  return With(L"DELETE FROM QRGPRM WHERE QRGPRM.PERMID = ", permId, L" and QRGPRM.GROUPID =",
              groupId);
}

std::wstring SqlDeleteGroupPermissions(std::int32_t groupId) {
  return With(L"DELETE FROM QRGPRM WHERE QRGPRM.GROUPID =", groupId);
}

std::wstring SqlSelectSessionUser(std::int32_t sessionId) {
  return With(L"SELECT QRAUSR.USERID FROM QRAUSR WHERE QRAUSR.SESID= ", sessionId);
}

std::wstring SqlSelectAdminUser() {
  return L"SELECT QRUSER.USERID FROM QRUSER WHERE QRUSER.NAME = 'Admin'";
}

std::wstring SqlSelectProtectedGroups() {
  return L"SELECT QRGROUP.GROUPID, QRGROUP.NAME FROM QRGROUP WHERE (QRGROUP.NAME = 'Everyone') OR "
         L"(QRGROUP.NAME = 'Administrators')";
}

std::wstring SqlSelectGroupByName(std::wstring_view name) {
  std::wstring statement = L"SELECT QRGROUPV.GROUPID FROM QRGROUPV WHERE QRGROUPV.NAME = '";
  statement += name;
  statement += L"'";
  return statement;
}

}  // namespace data
