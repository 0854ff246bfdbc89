// What the trees have to show, read from the tables with statements of the test's own.

#include "app/StringIds.h"
#include "tests/program/Outline.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

const std::wstring kLiving = L" COALESCE(VFLG, '') <> 'D'";

// A column in its display form.
std::wstring Shown(const std::wstring& column, int code) {
  return L"COALESCE((SELECT MAPPED FROM QRDISPLAY WHERE CODE = " + std::to_wstring(code) +
         L" AND GIVEN = " + column + L"), " + column + L")";
}

const std::wstring kUser = L"SELECT USERID, NAME, FULLNAME FROM QRUSER WHERE" + kLiving;
const std::wstring kGroup = L"SELECT GROUPID, " + Shown(L"NAME", 104) + L", " +
                            Shown(L"DESCR", 105) + L" FROM QRGROUP WHERE" + kLiving;
const std::wstring kPermission =
    L"SELECT PERMID, " + Shown(L"NAME", 101) + L" FROM QRPERM WHERE PERMID IN ";

std::wstring AccountText(const Database::Row& row) {
  const std::wstring addition = row[2].value_or(L"");
  if (addition.find_first_not_of(L' ') == std::wstring::npos) return row[1].value_or(L"");
  return row[1].value_or(L"") + L" (" + addition + L")";
}

Outline Accounts(Database& database, int caption, const std::wstring& statement) {
  Outline folder{String(caption), {}};
  for (const Database::Row& row : database.Rows(statement)) {
    folder.children.push_back({AccountText(row), {}});
  }
  return folder;
}

Outline Permissions(Database& database, int caption, const std::wstring& identifiers) {
  Outline folder{String(caption), {}};
  for (const Database::Row& row : database.Rows(kPermission + L"(" + identifiers + L")")) {
    folder.children.push_back({row[1].value_or(L""), {}});
  }
  return folder;
}

}  // namespace

Outline ExpectedUsers(Database& database) {
  Outline root{String(app::kUsers), {}};
  for (const Database::Row& row : database.Rows(kUser)) {
    const std::wstring& id = *row[0];
    const std::wstring groups = L"SELECT GROUPID FROM QRUSGP WHERE USERID = " + id;
    const std::wstring own = L"SELECT PERMID FROM QRUPRM WHERE USERID = " + id;
    const std::wstring inherited = L"SELECT PERMID FROM QRGPRM WHERE GROUPID IN (" + groups +
                                   L") AND GROUPID IN (SELECT GROUPID FROM QRGROUP WHERE" +
                                   kLiving + L")";
    root.children.push_back(
        {AccountText(row),
         {Accounts(database, app::kMemberOf, kGroup + L" AND GROUPID IN (" + groups + L")"),
          Permissions(database, app::kUserPermissions, own),
          Permissions(database, app::kAllPermissions, own + L" UNION " + inherited)}});
  }
  return root;
}

Outline ExpectedGroups(Database& database) {
  Outline root{String(app::kGroups), {}};
  for (const Database::Row& row : database.Rows(kGroup)) {
    const std::wstring& id = *row[0];
    const std::wstring members = L"SELECT USERID FROM QRUSGP WHERE GROUPID = " + id;
    const std::wstring permissions = L"SELECT PERMID FROM QRGPRM WHERE GROUPID = " + id;
    root.children.push_back(
        {AccountText(row),
         {Accounts(database, app::kMembers, kUser + L" AND USERID IN (" + members + L")"),
          Permissions(database, app::kGroupPermissions, permissions)}});
  }
  return root;
}

}  // namespace program
