#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/StringIds.h"
#include "app/mGlobal.h"
#include "browser/frmUserGroupPerm.h"
#include "controls/Desktop.h"
#include "server/core/samples/Filling.h"
#include "tests/support/controls/User.h"
#include "tests/support/data/SampleDatabase.h"
#include "tests/support/keys/Buttons.h"
#include "tests/support/keys/Keys.h"
#include "tests/support/recording/CallLog.h"

namespace test_support {

// The program from its main window down, on the reference session server and a database of its own,
// with a user in front of it.
class MainWindowFixture : public ::testing::Test {
 protected:
  using WindowScript = std::function<void(browser::frmUserGroupPerm& window)>;
  using enum WindowButton;
  using enum ChooserButton;
  using enum MoveButton;
  using enum DialogList;
  static constexpr int kUsersTree = test_support::kUsersTree;
  static constexpr int kGroupsTree = test_support::kGroupsTree;

  MainWindowFixture();

  // Replaces the sample by made-up accounts; before Run.
  void UseGenerated(const server::GeneratedSize& size);
  // A sample as it was at first.
  void UseSample();
  test_support::SampleDatabase& Database() { return *database_; }
  test_support::RawDatabase Raw() { return database_->Raw(); }

  // Runs the program with a session of the user. The script sees the started window and need not
  // close it; without a script no window may come to that.
  void Run(const WindowScript& script = {}, std::wstring_view userName = L"Admin");

  std::wstring Text(int id) const { return desktop.LoadResString(id); }
  std::wstring TextOfError(long number) const {
    return Text(app::kErrorTexts + static_cast<int>(number));
  }
  // The texts of a node's children, in their order.
  static std::vector<std::wstring> ChildTexts(const controls::TreeView& tree,
                                              controls::NodeId node);
  // The child with this text; kNoNode when there is none.
  static controls::NodeId Child(const controls::TreeView& tree, controls::NodeId node,
                                std::wstring_view text);
  // The node that the texts lead to from the root; fails the test when there is none.
  static controls::NodeId NodeAt(const controls::TreeView& tree,
                                 const std::vector<std::wstring>& texts);

  ScriptedDesktop desktop;
  User user{desktop};
  CallLog log;
  app::mGlobal global{desktop};

 private:
  std::unique_ptr<test_support::SampleDatabase> database_;
};

}  // namespace test_support
