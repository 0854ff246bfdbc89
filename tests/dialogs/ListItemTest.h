#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/StringIds.h"
#include "dialogs/frmListItem.h"
#include "tests/support/dialogs/DialogFixture.h"

namespace dialogs {

using Texts = std::vector<std::wstring>;
using Ids = std::vector<std::int32_t>;
using Rows = std::vector<std::vector<std::string>>;

// The checklist chooser over the main window. Of the sample's users, Martin (9) is in Everyone (2),
// Production (7) and Laboratoire (12) and holds the permissions 14 and 20; of its groups,
// Laboratoire holds the permission 20.
class ListItemTest : public test_support::DialogFixture {
 protected:
  static constexpr std::int32_t kMartin = 9;
  static constexpr std::int32_t kLaboratory = 12;

  void Prepare(frmListItem& chooser, int kind, int relation, std::int32_t owner) {
    chooser.ListKind = Text(kind);
    chooser.RelationName = Text(relation);
    chooser.OwnerID = owner;
  }
  void PrepareGroupsOf(std::int32_t userId) {
    Prepare(dialog, app::kGroups, app::kMemberOf, userId);
  }
  void PreparePermissionsOf(std::int32_t userId) {
    Prepare(dialog, app::kPermissions, app::kUserPermissions, userId);
  }
  void PreparePermissionsOfGroup(std::int32_t groupId) {
    Prepare(dialog, app::kPermissions, app::kGroupPermissions, groupId);
  }

  using DialogFixture::Show;
  void Show(const std::function<void(frmListItem&)>& script,
            test_support::Where where = test_support::Where::current()) {
    DialogFixture::Show<frmListItem>(dialog, script, where);
  }

  static Texts TextsOf(const frmListItem& chooser) {
    Texts texts;
    for (int i = 0; i < chooser.List1.ListCount(); ++i) texts.push_back(chooser.List1.List(i));
    return texts;
  }
  static Ids IdsOf(const frmListItem& chooser) {
    Ids ids;
    for (int i = 0; i < chooser.List1.ListCount(); ++i) ids.push_back(chooser.List1.ItemData(i));
    return ids;
  }
  // The item with this id; fails the test where there is none.
  static int ItemOf(const frmListItem& chooser, std::int32_t id) {
    for (int i = 0; i < chooser.List1.ListCount(); ++i) {
      if (chooser.List1.ItemData(i) == id) return i;
    }
    ADD_FAILURE() << "no item " << id;
    return -1;
  }
  void Tick(frmListItem& chooser, std::int32_t id) {
    user.Toggle(chooser.List1, ItemOf(chooser, id));
  }

  // What the database says afterwards.
  Rows GroupsInDatabase(std::int32_t userId) {
    return Raw().Rows("select groupid from qrusgp where userid = " + std::to_string(userId) +
                      " order by groupid");
  }
  Rows PermissionsInDatabase(std::int32_t userId) {
    return Raw().Rows("select permid from qruprm where userid = " + std::to_string(userId) +
                      " order by permid");
  }
  Rows GroupPermissionsInDatabase(std::int32_t groupId) {
    return Raw().Rows("select permid from qrgprm where groupid = " + std::to_string(groupId) +
                      " order by permid");
  }

  frmListItem dialog{exchange};
};

}  // namespace dialogs
