#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/StringIds.h"
#include "dialogs/frmListItem.h"
#include "tests/support/dialogs/DialogFixture.h"

namespace dialogs {

using test_support::Ids;
using test_support::IdsOf;
using test_support::ItemOf;
using test_support::Sample;
using test_support::SelectedIds;
using test_support::Texts;
using test_support::TextsOf;

// The checklist chooser over the main window. Of the sample's users, Martin (9) is in Everyone (2),
// Production (7) and Laboratoire (12) and holds the permissions 14 and 20; of its groups,
// Laboratoire holds the permission 20.
class ListItemTest : public test_support::DialogFixture {
 protected:
  static constexpr std::int32_t kMartin = Sample::kMartin;
  static constexpr std::int32_t kLaboratory = Sample::kLaboratoire;

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

  void Tick(frmListItem& chooser, std::int32_t id) {
    user.Toggle(chooser.List1, ItemOf(chooser.List1, id));
  }

  // What the database says afterwards, in ascending order.
  Ids GroupsInDatabase(std::int32_t userId) {
    return IdsIn("select groupid from qrusgp where userid = " + std::to_string(userId) +
                 " order by groupid");
  }
  Ids PermissionsInDatabase(std::int32_t userId) {
    return IdsIn("select permid from qruprm where userid = " + std::to_string(userId) +
                 " order by permid");
  }
  Ids GroupPermissionsInDatabase(std::int32_t groupId) {
    return IdsIn("select permid from qrgprm where groupid = " + std::to_string(groupId) +
                 " order by permid");
  }

  frmListItem dialog{exchange};
};

}  // namespace dialogs
