#pragma once

#include <set>
#include <string>
#include <utility>

#include "data/TextFilter.h"
#include "tests/support/walk/Tables.h"
#include "tests/support/walk/Walk.h"
#include "tests/support/walk/WantedTrees.h"

namespace test_support {

// The state that the window has to be in. Actions and commands bring it forward, the checks compare
// it with what is there.
struct Expected {
  explicit Expected(const browser::ProtectedAccounts& accounts) : trees(accounts) {}

  // Both trees were read from this database.
  void Refreshed(const Tables& now) {
    trees.Refresh(now);
    differing.clear();
    isChangedOutside = false;
    done.clear();
    for (auto& accounts : kept) accounts.clear();
  }

  // Something is searched for in this tree: nothing else that does not match is kept on view.
  void Searches(int tree, const std::wstring& text) {
    // A word that is typed over the same one has been another on the way there.
    if (text.size() > 1 || data::TextFilter(text) != data::TextFilter(found[tree])) {
      done.clear();
      kept[tree].clear();
    }
    found[tree] = text;
  }

  // The node of this tab and key is selected: what a command has left elsewhere is told no longer.
  void Selected(int tab, const std::wstring& key) {
    if (doneAt != std::pair(tab, key)) done.clear();
  }

  WantedTrees trees;
  // The keys of the nodes that may differ from what a refresh would show.
  std::set<std::wstring> differing;
  // Somebody else has changed the database since the last refresh.
  bool isChangedOutside = false;
  // A word of what the status line says of the last command, as long as what was selected after it
  // stays selected; empty where it says nothing of it.
  std::wstring done;
  std::pair<int, std::wstring> doneAt;
  // What stands in the box above each tree, and the accounts that stay on view because they were
  // selected since.
  std::wstring found[2];
  std::set<std::wstring> kept[2];
};

}  // namespace test_support
