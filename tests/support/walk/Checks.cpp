#include "tests/support/walk/Checks.h"

#include <gtest/gtest.h>

#include "browser/trees/TreeImages.h"
#include "controls/Desktop.h"
#include "controls/SortKey.h"
#include "controls/TreeModel.h"
#include "data/Text.h"
#include "data/TextFilter.h"
#include "tests/support/keys/Buttons.h"
#include "tests/support/keys/Keys.h"
#include "tests/support/walk/Catalogue.h"
#include "tests/support/walk/Command.h"

namespace test_support {
namespace {

TreeLines ShownLines(const controls::TreeNodes& nodes) {
  TreeLines lines;
  for (controls::NodeId node = nodes.NextIndex(controls::kNoNode); node != controls::kNoNode;
       node = nodes.NextIndex(node)) {
    const bool folder = nodes.Image(node) <= browser::kFolderOpen;
    if (folder) {
      EXPECT_EQ(nodes.Image(node) == browser::kFolderOpen, nodes.Expanded(node))
          << data::ToUtf8(nodes.Key(node));
    }
    const int image = folder ? +browser::kFolderClosed : nodes.Image(node);
    lines[nodes.Key(node)] =
        nodes.Text(node) + L" | " + std::to_wstring(image) + L" | " + nodes.StoredName(node);
  }
  EXPECT_EQ(static_cast<int>(lines.size()), nodes.Count());
  return lines;
}

bool IsFound(const data::TextFilter& filter, const controls::TreeNodes& nodes,
             controls::NodeId account) {
  return filter.Matches(data::FoldedText(nodes.Text(account) + L" " + nodes.StoredName(account)));
}

// The keys whose lines are not the same in both, each with both lines.
std::map<std::wstring, std::string> Differences(const TreeLines& left, const TreeLines& right) {
  std::map<std::wstring, std::string> differences;
  const auto compare = [&](const TreeLines& from, const TreeLines& to) {
    for (const auto& [key, line] : from) {
      const auto other = to.find(key);
      if (other != to.end() && other->second == line) continue;
      const auto own = left.find(key);
      const auto their = right.find(key);
      differences[key] = data::ToUtf8(key) + ": \"" +
                         (own == left.end() ? "-" : data::ToUtf8(own->second)) + "\" against \"" +
                         (their == right.end() ? "-" : data::ToUtf8(their->second)) + "\"";
    }
  };
  compare(left, right);
  compare(right, left);
  return differences;
}

}  // namespace

void Checks::AfterStep() {
  const Tables now = ReadTables(walk_.raw);
  CheckTrees();
  CheckDifferences(now);
  for (const int tree : kTrees) {
    CheckOrder(tree);
    CheckCounts(tree);
    CheckButtons(tree);
    CheckOnView(tree);
  }
  CheckSelection();
  CheckProtected(now);
  CheckStatements();
  CheckStatus(now);
  CheckWindow();
}

void Checks::CheckWindow() const {
  EXPECT_TRUE(walk_.window.IsLoaded());
  EXPECT_TRUE(walk_.user.CanUse(walk_.window.cmdBtn[kRefreshButton]))
      << "a modal form is left open";
  EXPECT_EQ(walk_.window.OwnerDesktop().Pointer(), controls::MousePointer::kDefault);
}

void Checks::CheckCounts(int tree) const {
  const int wanted = expected_.trees.Count(tree);
  EXPECT_EQ(tree == kUsersTree ? walk_.window.Users.accountCount : walk_.window.Groups.accountCount,
            wanted);
  EXPECT_EQ(walk_.Nodes(tree).Children(walk_.Nodes(tree).Root()), wanted);
}

void Checks::CheckTrees() const {
  for (const int tree : kTrees) {
    for (const auto& [key, text] :
         Differences(ShownLines(walk_.Nodes(tree)), expected_.trees.Lines(tree))) {
      ADD_FAILURE() << "shown against wanted: " << text;
    }
  }
}

// What is wanted is what a refresh would build, but for the differences that are meant.
void Checks::CheckDifferences(const Tables& now) {
  if (expected_.isChangedOutside) return;
  WantedTrees refreshed(walk_.window.accounts);
  refreshed.Refresh(now);
  std::set<std::wstring> present;
  for (const int tree : kTrees) {
    for (const auto& [key, text] :
         Differences(expected_.trees.Lines(tree), refreshed.Lines(tree))) {
      if (key != Keys::Root()) present.insert(key);
      EXPECT_TRUE(expected_.differing.contains(key)) << "wanted against refreshed: " << text;
    }
  }
  expected_.differing = present;
}

void Checks::CheckOrder(int tree) const {
  const controls::TreeNodes& nodes = walk_.Nodes(tree);
  for (controls::NodeId parent = nodes.NextIndex(controls::kNoNode); parent != controls::kNoNode;
       parent = nodes.NextIndex(parent)) {
    controls::NodeId before = controls::kNoNode;
    for (const controls::NodeId node : nodes.ChildrenInOrder(parent)) {
      if (before != controls::kNoNode) {
        EXPECT_LE(controls::SortKey(nodes.Text(before)), controls::SortKey(nodes.Text(node)))
            << data::ToUtf8(nodes.Key(before)) << " before " << data::ToUtf8(nodes.Key(node));
      }
      before = node;
    }
  }
}

// An account is on view where the box above its tree finds it, and where it was selected since
// somebody last typed there.
void Checks::CheckOnView(int tree) {
  EXPECT_EQ(walk_.window.Page(tree).txtFind.Text(), expected_.found[tree]);
  const data::TextFilter filter(expected_.found[tree]);
  controls::TreeModel& model = controls::ModelOf(walk_.TreeOf(tree));
  const controls::TreeNodes& nodes = model.Nodes();
  const Target at = ReadTarget(tree, walk_.SelectedKey(tree));
  if (at.account != -1) expected_.kept[tree].insert(Keys::Account(tree, at.account));
  const std::vector<controls::NodeId> shown = model.ChildrenOnView(nodes.Root());
  std::vector<controls::NodeId> wanted;
  for (const controls::NodeId account : nodes.ChildrenInOrder(nodes.Root())) {
    if (IsFound(filter, nodes, account) || expected_.kept[tree].contains(nodes.Key(account))) {
      wanted.push_back(account);
    }
  }
  EXPECT_EQ(shown, wanted) << data::ToUtf8(expected_.found[tree]);
}

int Checks::CountFound(int tree) const {
  const data::TextFilter filter(expected_.found[tree]);
  const controls::TreeNodes& nodes = walk_.Nodes(tree);
  int found = 0;
  for (const controls::NodeId account : nodes.ChildrenInOrder(nodes.Root())) {
    found += IsFound(filter, nodes, account);
  }
  return found;
}

// Edit, Delete and New, Assign and Remove of the first links, then of the second, as the selected
// node allows them.
std::string Checks::WantedButtons(int tree) const {
  const Target at = ReadTarget(tree, walk_.SelectedKey(tree));
  const browser::ProtectedAccounts& kept = walk_.window.accounts;
  const auto is = [&at](std::initializer_list<const wchar_t*> tags) {
    for (const wchar_t* tag : tags) {
      if (at.tag == tag) return true;
    }
    return false;
  };
  const bool first = is({L"US", L"GR", L"MO", L"MS", L"GU", L"UG"});
  const bool second = is({L"US", L"GR", L"UP", L"GP", L"PU", L"PG"});
  bool remove = at.account != -1;
  bool removeFirst = is({L"GU", L"UG"});
  bool assignSecond = second;
  bool removeSecond = is({L"PU", L"PG"});
  if (tree == kUsersTree) {
    if (at.account == kept.adminUserId || at.account == kept.currentUserId) remove = false;
    if (removeFirst && at.leaf == kept.everyoneGroupId) removeFirst = false;
    if (at.account == kept.adminUserId && at.leaf == kept.administratorsGroupId) {
      removeFirst = false;
    }
  } else if (at.account == kept.administratorsGroupId) {
    remove = assignSecond = removeSecond = false;
    if (walk_.Nodes(kGroupsTree).Text(walk_.SelectedNode(kGroupsTree)) == L"Admin")
      removeFirst = false;
  } else if (at.account == kept.everyoneGroupId) {
    remove = removeFirst = false;
  }
  std::string look = at.account != -1 ? "E" : "-";
  look += remove ? "DN " : "-N ";
  look += first ? "A" : "-";
  look += removeFirst ? "R " : "- ";
  look += assignSecond ? "A" : "-";
  look += removeSecond ? "R" : "-";
  return look;
}

void Checks::CheckButtons(int tree) {
  constexpr char kSigns[] = "EDNARAR";
  std::string look;
  const auto buttons = walk_.Buttons(tree);
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    if (i == 3 || i == 5) look += ' ';
    look += buttons[i]->Enabled() ? kSigns[i] : '-';
  }
  EXPECT_EQ(look, WantedButtons(tree)) << data::ToUtf8(walk_.SelectedKey(tree));
}

// What the window says that the selected node of the shown tab stands for.
void Checks::CheckSelection() const {
  const int tree = walk_.Tab();
  const Target at = ReadTarget(tree, walk_.SelectedKey(tree));
  const bool link = at.tag == L"GU" || at.tag == L"UG";
  const bool permission = at.tag == L"PU" || at.tag == L"PG";
  EXPECT_EQ(tree == kUsersTree ? walk_.window.exchange.UserID : walk_.window.exchange.GroupID,
            at.account);
  EXPECT_EQ(tree == kUsersTree ? walk_.window.exchange.GroupID : walk_.window.exchange.UserID,
            link ? at.leaf : -1);
  EXPECT_EQ(walk_.window.Page(tree).selectedPermId, permission ? at.leaf : -1);
  const controls::NodeId node = walk_.SelectedNode(tree);
  EXPECT_EQ(walk_.window.Page(tree).selectedPermName,
            permission ? walk_.Nodes(tree).Text(node) : std::wstring());
}

void Checks::CheckProtected(const Tables& now) const {
  const browser::ProtectedAccounts& kept = walk_.window.accounts;
  EXPECT_EQ(now.users.at(kept.adminUserId).name, L"Admin");
  EXPECT_EQ(now.groups.at(kept.administratorsGroupId).name, L"Administrators");
  EXPECT_EQ(now.groups.at(kept.everyoneGroupId).name, L"Everyone");
  for (const std::int32_t id : {kept.adminUserId, kept.currentUserId}) {
    EXPECT_FALSE(now.users.at(id).deleted) << "user " << id;
  }
  for (const std::int32_t id : {kept.administratorsGroupId, kept.everyoneGroupId}) {
    EXPECT_FALSE(now.groups.at(id).deleted) << "group " << id;
  }
  EXPECT_TRUE(now.memberships.contains({kept.adminUserId, kept.administratorsGroupId}));
}

void Checks::CheckStatements() {
  for (const std::wstring& statement : walk_.log.statements) {
    EXPECT_TRUE(IsInCatalogue(statement)) << data::ToUtf8(statement);
  }
  walk_.log.statements.clear();
  walk_.log.serverCalls.clear();
  walk_.log.calls.clear();
}

void Checks::CheckStatus(const Tables& now) const {
  const std::wstring status = walk_.window.lblStatus.Caption();
  expected_.Selected(walk_.Tab(), walk_.SelectedKey(walk_.Tab()));
  if (!expected_.done.empty()) {
    EXPECT_NE(status.find(expected_.done), std::wstring::npos) << data::ToUtf8(status);
    return;
  }
  if (!data::TextFilter(expected_.found[walk_.Tab()]).IsEmpty()) {
    const std::wstring count = std::to_wstring(CountFound(walk_.Tab())) + L" sur " +
                               std::to_wstring(expected_.trees.Count(walk_.Tab()));
    EXPECT_TRUE(status == count || status.starts_with(count + L" - ")) << data::ToUtf8(status);
    return;
  }
  if (walk_.Tab() == kUsersTree &&
      ReadTarget(kUsersTree, walk_.SelectedKey(kUsersTree)).tag == L"PA") {
    EXPECT_TRUE(status.starts_with(L"Accord") || status.starts_with(L"Par ") ||
                status.starts_with(L"Origine"))
        << data::ToUtf8(status);
    return;
  }
  EXPECT_EQ(status, std::to_wstring(expected_.trees.Count(kUsersTree)) + L" utilisateurs, " +
                        std::to_wstring(expected_.trees.Count(kGroupsTree)) + L" groupes, " +
                        std::to_wstring(now.permissions.size()) + L" permissions");
}

}  // namespace test_support
