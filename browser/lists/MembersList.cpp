#include <algorithm>
#include <unordered_map>

#include "app/StringIds.h"
#include "browser/lists/AccountLists.h"
#include "browser/lists/UserRow.h"
#include "browser/rules/AccountName.h"
#include "browser/rules/EffectivePermissions.h"
#include "browser/rules/JoinedNames.h"
#include "browser/rules/TreeKeys.h"
#include "controls/SortKey.h"
#include "data/Text.h"

namespace browser {
namespace {

using controls::NodeId;

constexpr std::size_t kMostNames = 3;

// Puts permissions in the order of their names. Thirty thousand members have a few hundred between
// them: each name is looked at once.
class PermissionOrder {
 public:
  explicit PermissionOrder(const controls::TreeNodes& users) : users_(users) {}

  // The first few of these leaves, in order.
  std::vector<std::wstring> FirstNames(std::vector<NodeId> leaves) {
    const std::size_t count = leaves.size() <= kMostNames + 1 ? leaves.size() : kMostNames;
    std::ranges::partial_sort(leaves, leaves.begin() + static_cast<std::ptrdiff_t>(count),
                              std::ranges::less(), [this](NodeId leaf) { return KeyOf(leaf); });
    std::vector<std::wstring> names;
    for (std::size_t i = 0; i < count; ++i) names.push_back(users_.Text(leaves[i]));
    return names;
  }

 private:
  std::string_view KeyOf(NodeId leaf) {
    const auto [key, added] = keys_.try_emplace(users_.Id(leaf));
    if (added) key->second = controls::SortKey(users_.Text(leaf));
    return key->second;
  }

  const controls::TreeNodes& users_;
  std::unordered_map<std::int32_t, std::string> keys_;
};

// One name more costs no more room than to say that it was left out.
std::wstring Shortened(const app::mGlobal& global, std::vector<std::wstring> names,
                       std::size_t count) {
  if (names.size() < count) {
    names.push_back(
        app::FillIn(global.LoadResString(app::kOthers),
                    {data::GroupedDecimal(static_cast<std::int64_t>(count - names.size()))}));
  }
  return JoinedNames(global, names);
}

}  // namespace

ListSource MembersList(const ListContext& context, std::int32_t groupId) {
  const app::mGlobal& global = context.global;
  ListSource source = UserList(context, app::kMembersTitle, app::kNoMember);
  const NodeId root = context.groups.Root();
  const NodeId group = root == controls::kNoNode
                           ? controls::kNoNode
                           : context.groups.FindChild(root, kGroupKey, groupId);
  if (group != controls::kNoNode) {
    source.heading =
        app::FillIn(global.LoadResString(app::kGroupHeading), {AccountName(context.groups, group)});
  }
  source.columns[0].share = 5;
  source.columns[1].share = 7;
  source.columns.push_back({global.LoadResString(app::kBeyondCountColumn), 3, true});
  source.columns.push_back({global.LoadResString(app::kBeyondColumn), 10});
  const EffectivePermissions permissions(context.users, context.groups);
  PermissionOrder order(context.users);
  for (const NodeId user : permissions.MembersOf(groupId)) {
    const std::vector<NodeId> beyond = permissions.Beyond(user, groupId);
    ListRow row = UserRow(context.users, user);
    row.texts.push_back(data::Decimal(static_cast<std::int64_t>(beyond.size())));
    row.texts.push_back(Shortened(global, order.FirstNames(beyond), beyond.size()));
    source.rows.push_back(std::move(row));
  }
  return source;
}

}  // namespace browser
