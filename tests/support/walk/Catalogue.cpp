#include "tests/support/walk/Catalogue.h"

#include <set>

#include "data/MSQLStatement.h"

namespace test_support {
namespace {

using namespace data;

// A number sign for every number.
std::wstring WithoutNumbers(const std::wstring& statement) {
  std::wstring shape;
  for (const wchar_t character : statement) {
    const bool digit = character >= L'0' && character <= L'9';
    if (!digit) {
      shape += character;
    } else if (shape.empty() || shape.back() != L'#') {
      shape += L'#';
    }
  }
  return shape;
}

std::set<std::wstring> Shapes() {
  const std::wstring statements[] = {SqlSelectAllUsers(),
                                     SqlSelectUser(1),
                                     SqlSelectGroupUsers(1),
                                     SqlSelectAllGroups(),
                                     SqlSelectGroup(1),
                                     SqlSelectUserGroups(1),
                                     SqlDeleteMembership(1, 1),
                                     SqlDeleteUserMemberships(1),
                                     SqlDeleteGroupMemberships(1),
                                     SqlDeleteAllGroupUsers(1),
                                     SqlSelectUserGroupIds(1),
                                     SqlSelectGroupMemberships(1),
                                     SqlSelectUserMemberships(1),
                                     SqlSelectMembership(1, 1),
                                     SqlDeleteUserPermission(1, 1),
                                     SqlDeleteUserPermissions(1),
                                     SqlSelectUserPermIds(1),
                                     SqlSelectUserPermRows(1),
                                     SqlSelectUserPermission(1, 1),
                                     SqlDeleteGroupPermission(1, 1),
                                     SqlDeleteGroupPermissions(1),
                                     SqlSelectGroupPermIds(1),
                                     SqlSelectGroupPermRows(1),
                                     SqlSelectGroupPermission(1, 1),
                                     SqlSelectAllPermissions(),
                                     SqlSelectInheritedPermissions(1),
                                     SqlSelectUserPermissionNames(1),
                                     SqlSelectGroupPermissionNames(1),
                                     SqlSelectSessionUser(1),
                                     SqlSelectAdminUser(),
                                     SqlSelectProtectedGroups(),
                                     SqlSelectGroupByName(L"Everyone"),
                                     L"BeginRead",
                                     L"EndRead"};
  std::set<std::wstring> shapes;
  for (const std::wstring& statement : statements) shapes.insert(WithoutNumbers(statement));
  return shapes;
}

// A soft delete carries a name, which may be anything.
bool IsSoftDelete(const std::wstring& statement, const std::wstring& example) {
  const std::wstring shape = WithoutNumbers(statement);
  const std::wstring pattern = WithoutNumbers(example);
  const std::size_t name = pattern.find(L'?');
  return shape.starts_with(pattern.substr(0, name)) && shape.ends_with(pattern.substr(name + 1)) &&
         shape.size() >= pattern.size() - 1;
}

}  // namespace

bool IsInCatalogue(const std::wstring& statement) {
  static const std::set<std::wstring> shapes = Shapes();
  if (shapes.contains(WithoutNumbers(statement))) return true;
  return IsSoftDelete(statement, SqlMarkUserDeleted(L"?", 1)) ||
         IsSoftDelete(statement, SqlMarkGroupDeleted(L"?", 1));
}

}  // namespace test_support
