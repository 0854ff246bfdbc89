#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/support/lists/Lists.h"
#include "tests/support/window/MainWindowFixture.h"

namespace browser {

using Strings = std::vector<std::wstring>;
using test_support::ItemOf;

// What tests of the main window's commands share: selecting by key, looking at both trees, the
// statements of the rebuilds and the boxes that commands bring up.
class CommandTest : public test_support::MainWindowFixture {
 protected:
  using Where = test_support::Where;

  // A click on the node of this key, on its tab.
  void Select(frmUserGroupPerm& window, int tree, const std::wstring& key);
  static std::wstring Selected(frmUserGroupPerm& window, int tree);
  static bool Has(frmUserGroupPerm& window, int tree, const std::wstring& key);
  static controls::NodeId At(frmUserGroupPerm& window, int tree, const std::wstring& key);

  // Every node of both trees with all that is seen of it but whether a folder is open.
  static Strings Look(frmUserGroupPerm& window);
  // What a refresh shows is what the trees show already.
  static void ExpectInStep(frmUserGroupPerm& window, Where where = Where::current());
  // The same with the exception of nodes that are shown until the refresh, each as Look has it up
  // to the "=".
  static void ExpectInStepBut(frmUserGroupPerm& window, const Strings& stale,
                              Where where = Where::current());

  // Whether a reading transaction is open. One that could not be begun is not.
  bool IsReading() const;

  // The statements of the rebuilds of all accounts, in the order in which the trees are now.
  static Strings GroupRebuild(frmUserGroupPerm& window);
  static Strings UserRebuild(frmUserGroupPerm& window);
  static Strings AllPermissionsRebuild(frmUserGroupPerm& window);
  static Strings Joined(Strings first, const Strings& second);

  void ExpectQuestion(int answer, const wchar_t* prompt, Where where = Where::current());
  void ExpectWarning(const wchar_t* prompt, int style, Where where = Where::current());
  // That somebody else was faster.
  void ExpectChangedMeanwhile(Where where = Where::current());

  // Fills the dialog in and presses OK; statements are noted from then on only.
  template <typename Dialog, typename Fill>
  void ExpectDialog(Fill fill, Where where = Where::current()) {
    user.ExpectModal(
        [this, fill](controls::Form& form) {
          auto& dialog = dynamic_cast<Dialog&>(form);
          fill(dialog);
          user.Click(dialog.cmdOK);
          log.statements.clear();
        },
        where);
  }
};

}  // namespace browser
