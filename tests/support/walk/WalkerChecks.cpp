// What holds after every step of the random administrator.

#include <gtest/gtest.h>

#include "browser/TreeImages.h"
#include "controls/SortKey.h"
#include "data/Text.h"
#include "tests/support/keys/Keys.h"
#include "tests/support/walk/Catalogue.h"
#include "tests/support/walk/Walker.h"

namespace test_support {
namespace {

TreeLines ShownLines(const controls::TreeNodes& nodes) {
  TreeLines lines;
  for (int node = nodes.NextIndex(0); node != controls::kNoNode; node = nodes.NextIndex(node)) {
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

void Walker::Check(bool command) {
  const Tables now = ReadTables(raw_);
  CheckTrees();
  CheckWantedDifferences(now);
  for (const int tree : {0, 1}) {
    CheckOrder(tree);
    CheckButtons(tree);
    EXPECT_EQ(tree == 0 ? window_.userCount : window_.groupCount, wanted_.Count(tree));
    EXPECT_EQ(NodesOf(tree).Children(NodesOf(tree).Root()), wanted_.Count(tree));
  }
  CheckSelection();
  CheckProtected(now);
  CheckStatements();
  CheckStatus(now);
  if (command) CheckKept();
  EXPECT_TRUE(window_.IsLoaded());
  EXPECT_TRUE(user_.CanUse(window_.cmdBtn[0])) << "a modal form is left open";
  EXPECT_EQ(window_.OwnerDesktop().Pointer(), controls::MousePointer::kDefault);
}

void Walker::CheckTrees() const {
  for (const int tree : {0, 1}) {
    for (const auto& [key, text] : Differences(ShownLines(NodesOf(tree)), wanted_.Lines(tree))) {
      ADD_FAILURE() << "shown against wanted: " << text;
    }
  }
}

// What is wanted is what a refresh would build, but for the differences that are meant.
void Walker::CheckWantedDifferences(const Tables& now) {
  if (foreign_) return;
  WantedTrees refreshed(window_.accounts);
  refreshed.Refresh(now);
  std::set<std::wstring> present;
  for (const int tree : {0, 1}) {
    for (const auto& [key, text] : Differences(wanted_.Lines(tree), refreshed.Lines(tree))) {
      if (key != Keys::Root()) present.insert(key);
      EXPECT_TRUE(meant_.contains(key)) << "wanted against refreshed: " << text;
    }
  }
  meant_ = present;
}

void Walker::CheckOrder(int tree) const {
  const Nodes& nodes = NodesOf(tree);
  for (int node = nodes.NextIndex(0); node != controls::kNoNode; node = nodes.NextIndex(node)) {
    const int next = nodes.Next(node);
    if (next == controls::kNoNode) continue;
    EXPECT_LE(controls::SortKey(nodes.Text(node)), controls::SortKey(nodes.Text(next)))
        << data::ToUtf8(nodes.Key(node)) << " before " << data::ToUtf8(nodes.Key(next));
  }
}

// Edit, Delete and New, Assign and Remove of the first links, then of the second, as the selected
// node allows them.
std::string Walker::WantedButtons(int tree) const {
  const Target at = ReadTarget(tree, SelectedKey(tree));
  const browser::ProtectedAccounts& kept = window_.accounts;
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
  if (tree == 0) {
    if (at.account == kept.adminUserId || at.account == kept.currentUserId) remove = false;
    if (removeFirst && at.leaf == kept.everyoneGroupId) removeFirst = false;
    if (at.account == kept.adminUserId && at.leaf == kept.administratorsGroupId) {
      removeFirst = false;
    }
  } else if (at.account == kept.administratorsGroupId) {
    remove = assignSecond = removeSecond = false;
    if (NodesOf(1).Text(window_.TreeView1[1].SelectedNode()) == L"Admin") removeFirst = false;
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

void Walker::CheckButtons(int tree) {
  constexpr char kSigns[] = "EDNARAR";
  std::string look;
  const auto buttons = Buttons(tree);
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    if (i == 3 || i == 5) look += ' ';
    look += buttons[i]->Enabled() ? kSigns[i] : '-';
  }
  EXPECT_EQ(look, WantedButtons(tree)) << data::ToUtf8(SelectedKey(tree));
}

// What the window says that the selected node of the shown tab stands for.
void Walker::CheckSelection() const {
  const int tree = Tab();
  const Target at = ReadTarget(tree, SelectedKey(tree));
  const bool link = at.tag == L"GU" || at.tag == L"UG";
  const bool permission = at.tag == L"PU" || at.tag == L"PG";
  EXPECT_EQ(tree == 0 ? window_.exchange.UserID : window_.exchange.GroupID, at.account);
  EXPECT_EQ(tree == 0 ? window_.exchange.GroupID : window_.exchange.UserID, link ? at.leaf : -1);
  EXPECT_EQ(window_.selectedPermId, permission ? at.leaf : -1);
  const int node = window_.TreeView1[tree].SelectedNode();
  EXPECT_EQ(window_.selectedPermName, permission ? NodesOf(tree).Text(node) : std::wstring());
}

void Walker::CheckProtected(const Tables& now) const {
  const browser::ProtectedAccounts& kept = window_.accounts;
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

void Walker::CheckStatements() {
  for (const std::wstring& statement : log_.statements) {
    EXPECT_TRUE(IsInCatalogue(statement)) << data::ToUtf8(statement);
  }
  log_.statements.clear();
  log_.serverCalls.clear();
  log_.calls.clear();
}

void Walker::CheckStatus(const Tables& now) const {
  const std::wstring status = window_.lblStatus.Caption();
  if (Tab() == 0 && ReadTarget(0, SelectedKey(0)).tag == L"PA") {
    EXPECT_TRUE(status.starts_with(L"Accord") || status.starts_with(L"Par ") ||
                status.starts_with(L"Origine"))
        << data::ToUtf8(status);
    return;
  }
  EXPECT_EQ(status, std::to_wstring(wanted_.Count(0)) + L" utilisateurs, " +
                        std::to_wstring(wanted_.Count(1)) + L" groupes, " +
                        std::to_wstring(now.permissions.size()) + L" permissions");
}

// A command leaves open what is open, closed what is closed, and selected what is selected, as far
// as it is still there. Who gets his first children may be open or closed.
void Walker::CheckKept() const {
  for (const int tree : {0, 1}) {
    const Nodes& nodes = NodesOf(tree);
    const auto expect = [&](const std::set<std::wstring>& keys, bool open) {
      for (const std::wstring& key : keys) {
        const int node = nodes.Find(key);
        if (node == controls::kNoNode || !nodes.HasChildren(node)) continue;
        EXPECT_EQ(nodes.Expanded(node), open) << data::ToUtf8(key);
      }
    };
    expect(open_[tree], true);
    expect(closed_[tree], false);
    if (nodes.Find(selected_[tree]) != controls::kNoNode) {
      EXPECT_EQ(SelectedKey(tree), selected_[tree]);
    }
  }
}

}  // namespace test_support
