#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmNewGroup.h"
#include "tests/support/dialogs/DialogFixture.h"

namespace dialogs {

using Strings = test_support::Texts;
using test_support::Ids;
using test_support::IdsOf;
using test_support::ItemOf;
using test_support::Sample;
using test_support::SelectedIds;
using test_support::TextsOf;

// The group dialogs and the chooser over a started main window. The sample's group 12 is
// Laboratoire with the members 9 Martin, 34 Clement and 38 and the permission 20; Administrators is
// 1, Everyone 2.
class GroupDialogs : public test_support::DialogFixture {
 protected:
  using Where = test_support::Where;

  // Show a dialog and let the script bring it to its end.
  void Edit(std::int32_t groupId, const std::function<void(frmEditGroup&)>& script,
            Where where = Where::current());
  void New(const std::function<void(frmNewGroup&)>& script, Where where = Where::current());
  // For the main window.
  void AddUsers(std::int32_t groupId, const std::function<void(frmAddUserInGroup&)>& script,
                Where where = Where::current());
  // Announces the chooser over a group dialog.
  void ExpectChooser(const std::function<void(frmAddUserInGroup&)>& script,
                     Where where = Where::current());

  // What the database holds, in ascending order.
  Ids MembersOf(std::int32_t groupId);
  Ids PermissionsOf(std::int32_t groupId);
  // Name and description of a group, "NULL" for a null.
  std::vector<std::string> RowOf(std::int32_t groupId);

  // Expects the cursor to be in the name, which is selected.
  static void ExpectNameSelected(const GroupDialog& dialog);
};

// The steps by which an open set adds a row, once for each.
void AppendNewRows(Strings& calls, const std::wstring& statement, int count);

}  // namespace dialogs
