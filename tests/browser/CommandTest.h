#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "data/MSQLStatement.h"
#include "tests/support/window/MainWindow.h"

namespace browser {

// What the tests of the main window's commands share.
class CommandTest : public testing_support::MainWindow {
 protected:
  using Strings = std::vector<std::wstring>;

  void Select(frmUserGroupPerm& window, int tree, const wchar_t* key) {
    user.ChooseTab(window.TabStrip1, tree);
    const int node = window.TreeView1[tree].Nodes().Find(key);
    ASSERT_NE(node, controls::kNoNode);
    user.Select(window.TreeView1[tree], node);
  }
  static std::wstring Selected(frmUserGroupPerm& window, int tree) {
    const controls::TreeView& view = window.TreeView1[tree];
    return view.Nodes().Key(view.SelectedNode());
  }
  static bool Has(frmUserGroupPerm& window, int tree, const wchar_t* key) {
    return window.TreeView1[tree].Nodes().Find(key) != controls::kNoNode;
  }

  // Every node of both trees with all that is seen of it.
  static Strings Look(frmUserGroupPerm& window) {
    Strings all;
    for (const controls::TreeView& tree : window.TreeView1) {
      const controls::TreeNodes& nodes = tree.Nodes();
      for (int node = nodes.NextIndex(0); node != controls::kNoNode; node = nodes.NextIndex(node)) {
        all.push_back(nodes.Key(node) + L"=" + nodes.FullPath(node) +
                      std::to_wstring(nodes.Image(node)) + nodes.StoredName(node));
      }
    }
    std::sort(all.begin(), all.end());
    return all;
  }
  // What a refresh shows is what the trees show already.
  void ExpectInStep(frmUserGroupPerm& window) {
    const Strings before = Look(window);
    window.RefreshTree();
    EXPECT_EQ(before, Look(window));
  }

  static Strings GroupRebuild(frmUserGroupPerm& window) {
    Strings statements{L"BeginRead"};
    const controls::TreeNodes& nodes = window.TreeView1[1].Nodes();
    for (int group = nodes.FirstChild(1); group != controls::kNoNode; group = nodes.Next(group)) {
      statements.push_back(data::SqlSelectGroupUsers(nodes.Id(group)));
    }
    statements.push_back(L"EndRead");
    return statements;
  }
  static Strings UserRebuild(frmUserGroupPerm& window) {
    Strings statements{L"BeginRead"};
    const controls::TreeNodes& nodes = window.TreeView1[0].Nodes();
    for (int account = nodes.FirstChild(1); account != controls::kNoNode;
         account = nodes.Next(account)) {
      statements.push_back(data::SqlSelectUserGroups(nodes.Id(account)));
      statements.push_back(data::SqlSelectInheritedPermissions(nodes.Id(account)));
    }
    statements.push_back(L"EndRead");
    return statements;
  }
  static Strings Joined(Strings first, const Strings& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
  }

  void ExpectQuestion(int answer, const wchar_t* prompt) {
    user.ExpectMsgBox({.answer = answer,
                       .prompt = prompt,
                       .style = controls::kYesNo | controls::kCritical | controls::kDefaultButton2,
                       .title = L"Admin Utilisateurs"});
  }
  void ExpectWarning(const wchar_t* prompt, int style) {
    user.ExpectMsgBox({.answer = controls::kResultOk,
                       .prompt = prompt,
                       .style = style,
                       .title = L"Admin Utilisateurs"});
  }

  // Fills the dialog in and presses OK; from then on statements are noted afresh.
  template <typename Dialog, typename Fill>
  void ExpectDialog(Fill fill) {
    user.ExpectModal([this, fill](controls::Form& form) {
      auto& dialog = dynamic_cast<Dialog&>(form);
      fill(dialog);
      user.Click(dialog.cmdOK);
      log.statements.clear();
    });
  }
};

}  // namespace browser
