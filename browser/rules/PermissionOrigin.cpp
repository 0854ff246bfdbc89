#include "browser/rules/PermissionOrigin.h"

#include <cstddef>
#include <vector>

#include "app/StringIds.h"
#include "browser/rules/AccountName.h"
#include "browser/rules/JoinedNames.h"
#include "browser/rules/TreeKeys.h"

namespace browser {
namespace {

int Pattern(bool direct, std::size_t groups) {
  if (groups == 0) return direct ? app::kGrantedDirectly : app::kOriginUnknown;
  if (groups == 1) return direct ? app::kDirectlyAndByGroup : app::kByGroup;
  return direct ? app::kDirectlyAndByGroups : app::kByGroups;
}

std::vector<std::wstring> NamesOf(const controls::TreeNodes& groups,
                                  const std::vector<controls::NodeId>& nodes) {
  std::vector<std::wstring> names;
  names.reserve(nodes.size());
  for (const controls::NodeId group : nodes) names.push_back(AccountName(groups, group));
  return names;
}

}  // namespace

std::wstring SourceText(const app::mGlobal& global, const controls::TreeNodes& groups,
                        const PermissionSource& source) {
  const std::vector<std::wstring> names = NamesOf(groups, source.groups);
  return app::FillIn(global.LoadResString(Pattern(source.direct, names.size())),
                     {JoinedNames(global, names)});
}

std::wstring PermissionOrigin(const app::mGlobal& global, const controls::TreeNodes& users,
                              const controls::TreeNodes& groups, controls::NodeId node) {
  if (!users.Exists(node) || users.FormOf(node).prefix != kAnyPermissionKey.prefix) return {};
  const controls::NodeId user = users.Parent(users.Parent(node));
  const EffectivePermissions permissions(users, groups);
  return SourceText(global, groups, permissions.SourceOf(user, users.Id(node)));
}

}  // namespace browser
