// The commands of both pages that answer with a list.

#include "app/StringIds.h"
#include "browser/lists/AccountLists.h"
#include "browser/lists/JournalList.h"
#include "browser/lists/frmList.h"
#include "browser/pages/AccountPage.h"
#include "browser/pages/WaitPointer.h"
#include "browser/rules/ButtonRules.h"
#include "browser/rules/TreeKeys.h"
#include "controls/Desktop.h"

namespace browser {

using controls::NodeId;

// The list of holders, of members and of two users side by side.
std::vector<AccountPage::MenuCommand> AccountPage::ListCommands() {
  using controls::kKeyControl;
  return {{app::kWhoHasIt, app::kCtrlQ, kKeyControl + 'Q',
           [this](NodeId node) { return WhyNoPermission(StandsForPermission(node)); },
           [this] { ShowHolders(); }},
          {app::kShowMembers, app::kCtrlM, kKeyControl + 'M',
           [this](NodeId node) { return WhyNoGroup(GroupAt(node).has_value()); },
           [this] { ShowMembers(); }},
          {app::kCompareWith, app::kCtrlK, kKeyControl + 'K',
           [this](NodeId node) { return WhyNoUser(UserAt(node) != controls::kNoNode); },
           [this] { CompareUsers(); }}};
}

AccountPage::MenuCommand AccountPage::JournalCommand() {
  return {app::kShowJournal, app::kCtrlJ, controls::kKeyControl + 'J',
          [](NodeId) { return WhyOff{}; },
          [this] { Choose([this] { return JournalList(Global()); }); }};
}

ListContext AccountPage::Listed() const {
  return {Global(), exchange_.usersTree.Nodes(), exchange_.groupsTree.Nodes(),
          host_.AllLeavesKnown()};
}

bool AccountPage::StandsForPermission(NodeId node) const {
  const std::wstring tag = lookup.GetTypeNode(KeyOf(node));
  return tag == L"PU" || tag == L"PA" || tag == L"PG";
}

// A leaf that lists a group stands for that one, what belongs to a group for its own. A group that
// was deleted may still be listed.
std::optional<std::int32_t> AccountPage::GroupAt(NodeId node) const {
  const controls::TreeNodes& nodes = TreeView1.Nodes();
  const std::wstring tag = lookup.GetTypeNode(KeyOf(node));
  const bool isLeaf = tag == L"GU";
  if (!isLeaf && tag != L"GR" && tag != L"MS" && tag != L"UG" && tag != L"GP" && tag != L"PG") {
    return std::nullopt;
  }
  const std::int32_t id = nodes.Id(isLeaf ? node : OwnerOf(tag, node));
  if (!host_.Has({kGroupsTab, id})) return std::nullopt;
  return id;
}

// The same for users, in the users tree.
NodeId AccountPage::UserAt(NodeId node) const {
  const std::wstring tag = lookup.GetTypeNode(KeyOf(node));
  if (tag == L"UG") {
    const controls::TreeNodes& users = exchange_.usersTree.Nodes();
    return users.FindChild(users.Root(), kUserKey, TreeView1.Nodes().Id(node));
  }
  const bool isUsers = tag == L"US" || tag == L"MO" || tag == L"GU" || tag == L"UP" ||
                       tag == L"PU" || tag == L"AP" || tag == L"PA";
  return isUsers ? OwnerOf(tag, node) : controls::kNoNode;
}

// The account that the user has chosen in a list, nothing where he has closed it.
std::optional<Account> AccountPage::Choose(const std::function<ListSource()>& make) {
  ListSource source;
  {
    const WaitPointer wait(Global().desktop);
    source = make();
  }
  frmList list(Global(), std::move(source));
  list.ShowModal(TreeView1.Owner());
  return list.chosen;
}

void AccountPage::ShowHolders() {
  const NodeId node = TreeView1.SelectedNode();
  const auto user = Choose([&] { return HoldersList(Listed(), TreeView1.Nodes(), node); });
  if (user) host_.GoTo(*user);
}

void AccountPage::ShowMembers() {
  const std::optional<std::int32_t> group = GroupAt(TreeView1.SelectedNode());
  if (!group) return;
  const auto user = Choose([&] { return MembersList(Listed(), *group); });
  if (user) host_.GoTo(*user);
}

void AccountPage::CompareUsers() {
  const NodeId one = UserAt(TreeView1.SelectedNode());
  if (one == controls::kNoNode) return;
  const auto chosen = Choose([&] { return UsersToCompare(Listed(), one); });
  if (!chosen) return;
  const controls::TreeNodes& users = exchange_.usersTree.Nodes();
  const NodeId other = users.FindChild(users.Root(), kUserKey, chosen->id);
  if (other == controls::kNoNode) return;
  Choose([&] { return ComparisonList(Listed(), one, other); });
}

}  // namespace browser
