#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "browser/frmUserGroupPerm.h"
#include "tests/support/controls/User.h"
#include "tests/support/data/RawDatabase.h"
#include "tests/support/data/SampleDatabase.h"
#include "tests/support/recording/CallLog.h"
#include "tests/support/walk/Dice.h"

namespace test_support {

// What the parts of a walk share: the window, the user in front of it, the database under it, the
// dice, and the list of what was done. All access to the window's trees and buttons is here.
class Walk {
 public:
  using KeySet = std::set<std::wstring>;

  Walk(browser::frmUserGroupPerm& form, User& person, CallLog& calls, RawDatabase& database,
       std::uint32_t seed)
      : window(form), user(person), log(calls), raw(database), dice(seed) {}

  // Where the walk has tables exported to.
  std::filesystem::path ExportedFile() const { return exports_.path / "rights.csv"; }

  void Note(const std::string& step) { steps.push_back(step); }
  // What somebody else does to the database.
  void ChangeFromOutside(const std::string& statement) {
    raw.Execute(statement);
    if (ChangedFromOutside) ChangedFromOutside(statement);
  }

  // The tab on view, which has the index of its tree.
  int Tab() const { return window.TabStrip1.SelectedTab(); }
  controls::TreeView& TreeOf(int tab) { return window.Page(tab).TreeView1; }
  const controls::TreeNodes& Nodes(int tree) const { return window.Page(tree).TreeView1.Nodes(); }
  controls::NodeId SelectedNode(int tree) const {
    return window.Page(tree).TreeView1.SelectedNode();
  }
  std::wstring SelectedKey(int tree) const;
  // Of the nodes with children: those that are open, or those that are closed.
  KeySet KeysOfNodes(int tree, bool open) const;
  // The buttons beside a tree in the order of kCommands.
  std::vector<controls::CommandButton*> Buttons(int tree);

  browser::frmUserGroupPerm& window;
  User& user;
  CallLog& log;
  RawDatabase& raw;
  Dice dice;
  std::vector<std::string> steps;  // a line each
  // Told of what somebody else has done.
  std::function<void(const std::string& statement)> ChangedFromOutside;

 private:
  // A folder that goes with the walk.
  struct Folder {
    Folder() : path(MakeTestFolder()) {}
    ~Folder() {
      std::error_code ignored;
      std::filesystem::remove_all(path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::filesystem::path path;
  };
  Folder exports_;
};

}  // namespace test_support
