#include "tests/browser/CommandTest.h"

#include <algorithm>
#include <iterator>

#include "browser/trees/TreeImages.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"

namespace browser {
namespace {

using controls::kNoNode;
using controls::TreeNodes;
using controls::TreeView;

// The children of a tree's root, by what they stand for.
std::vector<std::int32_t> AccountsOf(const TreeView& tree) {
  const TreeNodes& nodes = tree.Nodes();
  std::vector<std::int32_t> ids;
  for (const controls::NodeId account : nodes.ChildrenInOrder(nodes.Root())) {
    ids.push_back(nodes.Id(account));
  }
  return ids;
}

Strings Rebuild(const TreeView& tree,
                std::initializer_list<std::wstring (*)(std::int32_t id)> statements) {
  Strings sent{L"BeginRead"};
  for (const std::int32_t id : AccountsOf(tree)) {
    for (const auto statement : statements) sent.push_back(statement(id));
  }
  sent.push_back(L"EndRead");
  return sent;
}

std::string Lines(const Strings& lines) {
  std::string text;
  for (const std::wstring& line : lines) text += "  " + data::ToUtf8(line) + "\n";
  return text;
}

Strings Without(const Strings& lines, const Strings& others) {
  Strings left;
  std::set_difference(lines.begin(), lines.end(), others.begin(), others.end(),
                      std::back_inserter(left));
  return left;
}

}  // namespace

void CommandTest::Select(frmUserGroupPerm& window, int tree, const std::wstring& key) {
  user.ChooseTab(window.TabStrip1, tree);
  const controls::NodeId node = At(window, tree, key);
  ASSERT_NE(node, kNoNode) << data::ToUtf8(key);
  user.Select(window.Page(tree).TreeView1, node);
}

std::wstring CommandTest::Selected(frmUserGroupPerm& window, int tree) {
  const TreeView& view = window.Page(tree).TreeView1;
  return view.Nodes().Key(view.SelectedNode());
}

bool CommandTest::Has(frmUserGroupPerm& window, int tree, const std::wstring& key) {
  return At(window, tree, key) != kNoNode;
}

controls::NodeId CommandTest::At(frmUserGroupPerm& window, int tree, const std::wstring& key) {
  return window.Page(tree).TreeView1.Nodes().Find(key);
}

// The order of siblings follows from their texts, which is for the tests of the control.
Strings CommandTest::Look(frmUserGroupPerm& window) {
  Strings all;
  for (const int tab : {kUsersTree, kGroupsTree}) {
    const TreeNodes& nodes = window.Page(tab).TreeView1.Nodes();
    for (controls::NodeId node = nodes.NextIndex(controls::kNoNode); node != kNoNode;
         node = nodes.NextIndex(node)) {
      const int image = nodes.Image(node) == kFolderOpen ? +kFolderClosed : nodes.Image(node);
      all.push_back(nodes.Key(node) + L"=" + nodes.FullPath(node) + L"|" + std::to_wstring(image) +
                    L"|" + nodes.StoredName(node));
    }
  }
  std::sort(all.begin(), all.end());
  return all;
}

bool CommandTest::IsReading() const {
  const auto last = std::find_if(log.statements.rbegin(), log.statements.rend(),
                                 [](const std::wstring& text) { return text.ends_with(L"Read"); });
  return last != log.statements.rend() && *last == L"BeginRead" && last != log.statements.rbegin();
}

void CommandTest::ExpectInStep(frmUserGroupPerm& window, Where where) {
  ExpectInStepBut(window, {}, where);
}

void CommandTest::ExpectInStepBut(frmUserGroupPerm& window, const Strings& stale, Where where) {
  const ::testing::ScopedTrace trace(where.file_name(), static_cast<int>(where.line()), "in step");
  const Strings before = Look(window);
  EXPECT_EQ(window.RefreshTree(), app::Outcome::kDone);
  const Strings after = Look(window);
  Strings gone;
  for (const std::wstring& line : Without(before, after))
    gone.push_back(line.substr(0, line.find(L'=')));
  EXPECT_EQ(gone, stale) << "only before the refresh:\n" << Lines(Without(before, after));
  const Strings added = Without(after, before);
  EXPECT_TRUE(added.empty()) << "only after the refresh:\n" << Lines(added);
}

Strings CommandTest::GroupRebuild(frmUserGroupPerm& window) {
  return Rebuild(window.Groups.TreeView1, {data::SqlSelectGroupUsers});
}

Strings CommandTest::UserRebuild(frmUserGroupPerm& window) {
  return Rebuild(window.Users.TreeView1,
                 {data::SqlSelectUserGroups, data::SqlSelectInheritedPermissions});
}

Strings CommandTest::AllPermissionsRebuild(frmUserGroupPerm& window) {
  return Rebuild(window.Users.TreeView1, {data::SqlSelectInheritedPermissions});
}

Strings CommandTest::Joined(Strings first, const Strings& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

void CommandTest::ExpectQuestion(int answer, const wchar_t* prompt, Where where) {
  user.ExpectMsgBox({.answer = answer,
                     .prompt = prompt,
                     .style = controls::kYesNo | controls::kCritical | controls::kDefaultButton2,
                     .title = L"Admin Utilisateurs"},
                    where);
}

void CommandTest::ExpectWarning(const wchar_t* prompt, int style, Where where) {
  user.ExpectMsgBox({.answer = controls::kResultOk,
                     .prompt = prompt,
                     .style = style,
                     .title = L"Admin Utilisateurs"},
                    where);
}

void CommandTest::ExpectChangedMeanwhile(Where where) {
  ExpectWarning(
      L"Un autre administrateur a modifié ces données entre-temps.\r\n"
      L"L'affichage a été mis à jour ; vérifiez-le avant de poursuivre.",
      controls::kInformation, where);
}

}  // namespace browser
