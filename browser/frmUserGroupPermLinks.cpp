// The commands of the main window that grant and withdraw memberships and permissions.

#include "app/ErrorReport.h"
#include "app/MQVXMsgBox.h"
#include "app/StringIds.h"
#include "browser/frmUserGroupPerm.h"
#include "browser/rules/Protection.h"
#include "browser/trees/TreeIndex.h"
#include "controls/Desktop.h"
#include "data/MSQLStatement.h"
#include "data/NodeKey.h"
#include "data/ProtectedId.h"
#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmListItem.h"

namespace browser {
namespace {

constexpr int kAssignIndex = 0;

}  // namespace

void frmUserGroupPerm::cmdMemberOf_Click(int Index) {
  const Selection at = ReadSelection(kUsers);
  if (Index == kAssignIndex) {
    AssignGroups(at);
  } else {
    RemoveMembership(at);
  }
  RefreshSelections(kUsers);
}

void frmUserGroupPerm::cmdUserPermission_Click(int Index) {
  const Selection at = ReadSelection(kUsers);
  if (Index == kAssignIndex) {
    AssignUserPermissions(at);
  } else {
    RemoveUserPermission(at);
  }
  RefreshSelections(kUsers);
}

void frmUserGroupPerm::cmdMember_Click(int Index) {
  const Selection at = ReadSelection(kGroups);
  if (Index == kAssignIndex) {
    AssignMembers(at);
  } else {
    RemoveMember(at);
  }
  RefreshSelections(kGroups);
}

void frmUserGroupPerm::cmdGroupPermission_Click(int Index) {
  const Selection at = ReadSelection(kGroups);
  if (Index == kAssignIndex) {
    AssignGroupPermissions(at);
  } else {
    RemoveGroupPermission(at);
  }
  RefreshSelections(kGroups);
}

void frmUserGroupPerm::ShowListItem(const std::wstring& listKind, const std::wstring& relation,
                                    std::int32_t owner) {
  dialogs::frmListItem dialog(exchange);
  dialog.ListKind = listKind;
  dialog.RelationName = relation;
  dialog.OwnerID = owner;
  dialog.ShowModal(*this);
}

void frmUserGroupPerm::AssignGroups(const Selection& at) {
  if (at.id == -1) return;
  ShowListItem(captions_.groupsRoot, captions_.memberOfCaption, at.id);
  if (!exchange.AddNode) return;
  Rebuild([&](FolderRebuild& rebuild) {
    return AllDone(
        {rebuild.EditMemberOfNode(at.account), rebuild.EditAllPermissionsNode(at.account)});
  });
  BringInStep(kGroups);
}

void frmUserGroupPerm::AssignUserPermissions(const Selection& at) {
  if (at.id == -1) return;
  ShowListItem(global_.LoadResString(app::kPermissions), captions_.userPermissionsCaption, at.id);
  if (!exchange.AddNode) return;
  Rebuild([&](FolderRebuild& rebuild) {
    return AllDone(
        {rebuild.EditUserPermissionsNode(at.account), rebuild.EditAllPermissionsNode(at.account)});
  });
  TreeView1[kUsers].SetExpanded(at.account, at.expanded);
}

void frmUserGroupPerm::AssignMembers(const Selection& at) {
  if (at.id == -1) return;
  dialogs::frmAddUserInGroup dialog(exchange);
  dialog.IsRemoveAdmin = IsRemoveAdmin;
  dialog.adminUserId = accounts.adminUserId;
  dialog.Mode = dialogs::CallerMode::kMainWindow;
  dialog.GroupID = at.id;
  dialog.GroupName = TreeView1[kGroups].Nodes().Text(at.account);
  dialog.ShowModal(*this);
  if (!exchange.AddNode) return;
  Rebuild([&](FolderRebuild& rebuild) { return rebuild.EditMembersNode(at.account); });
  TreeView1[kGroups].SetExpanded(at.account, at.expanded);
  BringInStep(kUsers);
}

void frmUserGroupPerm::AssignGroupPermissions(const Selection& at) {
  if (at.id == -1 || ProtectGroup(accounts, at.id, {}).permissions) return;
  ShowListItem(global_.LoadResString(app::kPermissions), captions_.groupPermissionsCaption, at.id);
  if (!exchange.AddNode) return;
  Rebuild([&](FolderRebuild& rebuild) { return rebuild.EditGroupPermissionsNode(at.account); });
  TreeView1[kGroups].SetExpanded(at.account, at.expanded);
  BringPermissionsInStep();
}

void frmUserGroupPerm::BringPermissionsInStep() {
  StartProgress(app::kUpdatingUsers);
  Rebuild([](FolderRebuild& rebuild) { return rebuild.EditAllPermissionsUserNode(); });
}

void frmUserGroupPerm::RemoveMembership(const Selection& at) {
  static constexpr LinkKind kKind{kUsers,
                                  L"GU",
                                  app::kSelectToRemoveGroup,
                                  app::kInMemberOf,
                                  app::kAskRemoveMembership,
                                  &FolderRebuild::EditMemberOfNode};
  const std::int32_t group = data::GetGroupID(at.key);
  if (ProtectUser(accounts, at.id, group).membership) return;
  RemoveLink(at, kKind, data::SqlDeleteMembership(group, at.id),
             [&] { BringAllPermissionsInStep(at); });
}

void frmUserGroupPerm::RemoveUserPermission(const Selection& at) {
  static constexpr LinkKind kKind{kUsers,
                                  L"PU",
                                  app::kSelectToRemovePermission,
                                  app::kInUserPermissions,
                                  app::kAskRemoveUserPermission,
                                  &FolderRebuild::EditUserPermissionsNode};
  RemoveLink(at, kKind, data::SqlDeleteUserPermission(at.id, lookup.GetPermID(at.key)),
             [&] { BringAllPermissionsInStep(at); });
}

void frmUserGroupPerm::RemoveMember(const Selection& at) {
  static constexpr LinkKind kKind{kGroups,
                                  L"UG",
                                  app::kSelectToRemoveGroup,
                                  app::kInMembers,
                                  app::kAskRemoveMember,
                                  &FolderRebuild::EditMembersNode};
  const std::int32_t user = data::GetUserID(at.key);
  if (at.tag == kKind.leafTag && data::IsProtectedId(accounts.everyoneGroupId, at.id)) return;
  if (data::IsProtectedId(accounts.administratorsGroupId, at.id) &&
      data::IsProtectedId(accounts.adminUserId, user)) {
    // The button is off only where his node shows the bare name.
    app::MQVXMsgBox(global_).ShowCannotRemoveUserFromGroup(
        TreeView1[kGroups].Nodes().Text(at.node));
    return;
  }
  RemoveLink(at, kKind, data::SqlDeleteMembership(at.id, user), [&] { BringInStep(kUsers); });
}

void frmUserGroupPerm::RemoveGroupPermission(const Selection& at) {
  static constexpr LinkKind kKind{kGroups,
                                  L"PG",
                                  app::kSelectToRemovePermission,
                                  app::kInGroupPermissions,
                                  app::kAskRemoveGroupPermission,
                                  &FolderRebuild::EditGroupPermissionsNode};
  if (at.tag == kKind.leafTag && ProtectGroup(accounts, at.id, {}).permissions) return;
  RemoveLink(at, kKind, data::SqlDeleteGroupPermission(at.id, lookup.GetPermID(at.key)),
             [&] { BringPermissionsInStep(); });
}

void frmUserGroupPerm::RemoveLink(const Selection& at, const LinkKind& kind,
                                  const std::wstring& statement,
                                  const std::function<void()>& after) {
  app::MQVXMsgBox box(global_);
  if (at.tag != kind.leafTag) {
    box.ShowInformation(global_.LoadResString(kind.warning1) + L"\r\n" +
                        global_.LoadResString(kind.warning2));
    return;
  }
  if (box.AskYesNo(global_.LoadResString(kind.question)) != controls::kResultYes) return;
  const auto rows = DeleteRecord(*global_.databaseConnection, statement);
  if (!rows) return;
  if (*rows == 0) {
    Rebuild([&](FolderRebuild& rebuild) { return (rebuild.*kind.reread)(at.account); });
  } else {
    TreeView1[kind.tree].Remove(at.node);
  }
  after();
  if (*rows == 0) TellChangedMeanwhile();
}

void frmUserGroupPerm::BringAllPermissionsInStep(const Selection& at) {
  Rebuild([&](FolderRebuild& rebuild) { return rebuild.EditAllPermissionsNode(at.account); });
}

std::optional<std::int32_t> frmUserGroupPerm::DeleteRecord(data::Connection& connection,
                                                           const std::wstring& sql) {
  try {
    return connection.Execute(sql);
  } catch (...) {
    app::ReportError(global_, L"DeleteRecord");
    return std::nullopt;
  }
}

// A statement that met no row found its work done, or undone, by somebody else.
void frmUserGroupPerm::TellChangedMeanwhile() {
  app::MQVXMsgBox(global_).ShowInformation(global_.LoadResString(app::kChangedMeanwhile1) +
                                           L"\r\n" +
                                           global_.LoadResString(app::kChangedMeanwhile2));
}

}  // namespace browser
