#include <algorithm>
#include <map>
#include <optional>

#include "app/StringIds.h"
#include "browser/lists/AccountLists.h"
#include "browser/lists/UserRow.h"
#include "browser/rules/AccountName.h"
#include "browser/rules/PermissionOrigin.h"
#include "browser/rules/TreeKeys.h"
#include "controls/SortKey.h"

namespace browser {
namespace {

using controls::NodeId;

// A permission that at least one of the two has.
struct Compared {
  // In the order in which they are listed.
  enum class Kind { kOneAlone, kOtherOrigin, kAlike };

  Kind Difference() const {
    if (!one || !other) return Kind::kOneAlone;
    const bool alike = one->direct == other->direct && one->groups == other->groups;
    return alike ? Kind::kAlike : Kind::kOtherOrigin;
  }

  std::wstring name;
  std::string key;  // by which the name is ordered
  std::optional<PermissionSource> one;
  std::optional<PermissionSource> other;
};

std::vector<Compared> Compare(const ListContext& context, NodeId one, NodeId other) {
  const EffectivePermissions permissions(context.users, context.groups);
  std::map<std::int32_t, Compared> byId;
  for (const bool first : {true, false}) {
    for (HeldPermission& held : permissions.PermissionsOf(first ? one : other)) {
      Compared& compared = byId[held.permission];
      compared.name = context.users.Text(held.leaf);
      (first ? compared.one : compared.other) = std::move(held.source);
    }
  }
  std::vector<Compared> all;
  for (auto& [id, compared] : byId) {
    compared.key = controls::SortKey(compared.name);
    all.push_back(std::move(compared));
  }
  std::ranges::stable_sort(all, std::ranges::less(), [](const Compared& compared) {
    return std::pair(compared.Difference(), std::string_view(compared.key));
  });
  return all;
}

std::wstring WhoHasIt(const app::mGlobal& global, const Compared& compared, const std::wstring& one,
                      const std::wstring& other) {
  if (compared.one && compared.other) return global.LoadResString(app::kBoth);
  return app::FillIn(global.LoadResString(app::kOnlyOne), {compared.one ? one : other});
}

}  // namespace

ListSource UsersToCompare(const ListContext& context, NodeId user) {
  ListSource source = UserList(context, app::kCompareTitle, app::kNobodyElse);
  source.heading = app::FillIn(context.global.LoadResString(app::kCompareHeading),
                               {AccountName(context.users, user)});
  source.action = context.global.LoadResString(app::kCompareRow);
  for (const NodeId other : context.users.ChildrenInOrder(context.users.Root())) {
    if (other != user) source.rows.push_back(UserRow(context.users, other));
  }
  return source;
}

ListSource ComparisonList(const ListContext& context, NodeId one, NodeId other) {
  const app::mGlobal& global = context.global;
  const std::wstring oneName = AccountName(context.users, one);
  const std::wstring otherName = AccountName(context.users, other);
  const auto origin = [&](const std::optional<PermissionSource>& source) {
    return source ? SourceText(global, context.groups, *source) : std::wstring();
  };
  ListSource source;
  source.title = global.LoadResString(app::kCompareTitle);
  source.heading = app::FillIn(global.LoadResString(app::kComparedHeading), {oneName, otherName});
  source.columns = {{global.LoadResString(app::kPermissionColumn), 4},
                    {global.LoadResString(app::kWhoColumn), 3},
                    {oneName, 4},
                    {otherName, 4}};
  source.nothing = global.LoadResString(app::kNothingToCompare);
  source.notice = IncompleteNotice(context);
  for (const Compared& compared : Compare(context, one, other)) {
    source.rows.push_back({{compared.name, WhoHasIt(global, compared, oneName, otherName),
                            origin(compared.one), origin(compared.other)}});
  }
  return source;
}

}  // namespace browser
