#include "browser/pages/GroupsPage.h"

#include "app/MQVXMsgBox.h"
#include "app/Reported.h"
#include "app/StringIds.h"
#include "browser/rules/Protection.h"
#include "browser/rules/TreeKeys.h"
#include "controls/MsgBox.h"
#include "data/MSQLStatement.h"
#include "data/NodeKey.h"
#include "dialogs/frmAddUserInGroup.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmNewGroup.h"
#include "resources/ResourceIds.h"

namespace browser {

using controls::NodeId;

namespace {

constexpr PageLayout kLayout{
    .tab = kGroupsTab,
    .txtFind = IDC_FIND_GROUPS,
    .lblTree = IDC_LBL_TREE_GROUPS,
    .TreeView1 = IDC_TREE_GROUPS,
    .fraAccount = IDC_FRA_GROUP,
    .cmdAccount = IDC_CMD_GROUP,
    .fraFirst = IDC_FRA_MEMBER,
    .cmdFirst = IDC_CMD_MEMBER,
    .fraSecond = IDC_FRA_GROUP_PERMISSION,
    .cmdSecond = IDC_CMD_GROUP_PERMISSION,
    .treeName = app::kGroupsTreeName,
    .accountCaption = app::kGroups,
    .firstCaption = app::kMembers,
    .secondCaption = app::kGroupPermissions,
    .created = app::kGroupCreated,
    .changed = app::kGroupChanged,
    .deleted = app::kGroupDeleted,
};

}  // namespace

GroupsPage::GroupsPage(controls::Form& form, const PageContext& context)
    : AccountPage(form, kLayout, context), groups_(context.trees, TreeView1, accountCount) {
  for (const int Index : {kEditButton, kDeleteButton, kNewButton}) {
    cmdGroup[Index].Click = [this, Index] { cmdGroup_Click(Index); };
  }
  for (const int Index : {kAssignButton, kRemoveButton}) {
    cmdMember[Index].Click = [this, Index] { cmdMember_Click(Index); };
    cmdGroupPermission[Index].Click = [this, Index] { cmdGroupPermission_Click(Index); };
  }
  commands_ = ListCommands();
  commands_.push_back(ExportCommand());
  commands_.push_back(JournalCommand());
}

int GroupsPage::ReadingText() const {
  return app::kReadingGroups;
}

int GroupsPage::UpdatingText() const {
  return app::kUpdatingGroups;
}

NodeId GroupsPage::OwnerOf(std::wstring_view tag, NodeId node) const {
  return lookup.GetIndexGroupNode(tag, node);
}

app::Outcome GroupsPage::Update(Change change) {
  // Nobody but this page changes what groups give.
  return change == Change::kAccounts ? groups_.EditGroupNode() : app::Outcome::kDone;
}

std::optional<Account> GroupsPage::AccountAt(NodeId node) const {
  const std::wstring tag = lookup.GetTypeNode(KeyOf(node));
  const controls::TreeNodes& nodes = TreeView1.Nodes();
  if (tag == L"UG") return Account{kUsersTab, nodes.Id(node)};
  if (tag == L"PG") return Account{kGroupsTab, nodes.Id(OwnerOf(tag, node))};
  return std::nullopt;
}

void GroupsPage::TreeGroupNode(NodeId node) {
  static_cast<void>(app::Reported(Global(), L"TreeGroupNode", [&] {
    ClearSelection();
    const std::wstring key = KeyOf(node);
    const std::wstring tag = lookup.GetTypeNode(key);
    ResetButtons(tag);
    if (OwnerOf(tag, node) == controls::kNoNode) return;
    exchange_.GroupID = data::GetGroupID(key);
    exchange_.GroupName = lookup.GetGroupName(tag, node);
    if (tag == L"UG") {
      exchange_.UserID = data::GetUserID(key);
      exchange_.UserName = lookup.GetUserName(tag, node);
    } else if (tag == L"PG") {
      selectedPermId = lookup.GetPermID(key);
      selectedPermName = lookup.GetPermName(tag, node);
    }
  }));
}

void GroupsPage::AdminAndEveryoneGroup(NodeId node) {
  static_cast<void>(app::Reported(Global(), L"AdminAndEveryoneGroup", [&] {
    const std::wstring text =
        node == controls::kNoNode ? std::wstring() : TreeView1.Nodes().Text(node);
    const GroupProtection off =
        ProtectGroup(context_.accounts, data::GetGroupID(KeyOf(node)), text);
    IsRemoveAdmin = !off.admin;
    if (off.account) Switch(fraGroup, cmdGroup[kDeleteButton], off.account);
    if (off.member) Switch(fraMember, cmdMember[kRemoveButton], off.member);
    if (!off.permissions) return;
    for (controls::CommandButton& button : cmdGroupPermission) {
      Switch(fraGroupPermission, button, off.permissions);
    }
  }));
}

void GroupsPage::cmdGroup_Click(int Index) {
  Run([this, Index](const Selection& at) {
    if (Index == kEditButton) return EditGroup(at);
    if (Index == kDeleteButton) return DeleteGroup(at);
    NewGroup();
    return true;
  });
}

void GroupsPage::cmdMember_Click(int Index) {
  Run([this, Index](const Selection& at) {
    Index == kAssignButton ? AssignMembers(at) : RemoveMember(at);
    return true;
  });
}

void GroupsPage::cmdGroupPermission_Click(int Index) {
  Run([this, Index](const Selection& at) {
    Index == kAssignButton ? AssignPermissions(at) : RemovePermission(at);
    return true;
  });
}

bool GroupsPage::EditGroup(const Selection& at) {
  if (WarnUnselected(at, app::kSelectGroupToEdit, controls::kOkOnly)) return false;
  if (!NamesAreKnown()) return true;
  dialogs::frmEditGroup dialog(exchange_);
  dialog.GroupID = at.id;
  dialog.ShowModal(TreeView1.Owner());
  if (exchange_.accountGone) ForgetAccount(at);
  if (!exchange_.AddNode) return true;
  // A folder that a rebuild closes has the selection read once more, and the exchange with it.
  const std::wstring text = exchange_.GroupName;
  const std::wstring storedName = exchange_.StoredName;
  Rebuild([&] {
    return AllDone(
        {groups_.EditMembersNode(at.account), groups_.EditGroupPermissionsNode(at.account)});
  });
  ShowEdited(at, text, storedName);
  TellDone(layout_.changed, {NameOf(at.account)});
  return true;
}

bool GroupsPage::DeleteGroup(const Selection& at) {
  if (WarnUnselected(at, app::kSelectGroupToDelete, controls::kExclamation)) return false;
  if (!ProtectGroup(context_.accounts, at.id, {}).account) {
    DeleteAccount(at, app::kAskDeleteGroup, Access().EndsWithoutGroup(at.id),
                  data::SqlMarkGroupDeleted);
  }
  return true;
}

void GroupsPage::NewGroup() {
  if (!NamesAreKnown()) return;
  dialogs::frmNewGroup dialog(exchange_);
  dialog.ShowModal(TreeView1.Owner());
  if (exchange_.AddNode) ShowNew(exchange_.GroupID);
}

void GroupsPage::AssignMembers(const Selection& at) {
  if (at.id == -1) return;
  dialogs::frmAddUserInGroup dialog(exchange_);
  dialog.IsRemoveAdmin = IsRemoveAdmin;
  dialog.adminUserId = context_.accounts.adminUserId;
  dialog.GroupID = at.id;
  dialog.GroupName = TreeView1.Nodes().Text(at.account);
  dialog.ShowModal(TreeView1.Owner());
  if (!exchange_.AddNode) return;
  RebuildAndReveal(at, kMembersKey, [&] { return groups_.EditMembersNode(at.account); });
  if (exchange_.membersRemoved) {
    TellDone(app::kMembersRemoved, {NameOf(at.account)});
  } else {
    TellAssigned(at, app::kUserAssigned, app::kUsersAssigned);
  }
  host_.BringOthersInStep(*this, Change::kAccounts);
}

void GroupsPage::AssignPermissions(const Selection& at) {
  if (at.id == -1 || ProtectGroup(context_.accounts, at.id, {}).permissions) return;
  ShowListItem(Global().LoadResString(app::kPermissions), context_.captions.groupPermissionsCaption,
               at.id);
  if (!exchange_.AddNode) return;
  RebuildAndReveal(at, kGroupPermissionsKey,
                   [&] { return groups_.EditGroupPermissionsNode(at.account); });
  TellAssigned(at, app::kPermissionAssigned, app::kPermissionsAssigned);
  host_.BringOthersInStep(*this, Change::kGroupPermissions);
}

void GroupsPage::RemoveMember(const Selection& at) {
  static constexpr LinkKind kKind{L"UG", app::kSelectToRemoveGroup, app::kInMembers,
                                  app::kAskRemoveMember, app::kMemberRemoved};
  const std::int32_t user = data::GetUserID(at.key);
  if (at.tag == kKind.leafTag) {
    const MemberRemoval removal = ProtectMember(context_.accounts, at.id, user);
    if (removal == MemberRemoval::kTold) {
      app::MQVXMsgBox(Global()).ShowCannotRemoveUserFromGroup(TreeView1.Nodes().Text(at.node));
    }
    if (removal != MemberRemoval::kAllowed) return;
  }
  RemoveLink(
      at, kKind, Access().EndsWithoutMembership(user, at.id),
      data::SqlDeleteMembership(at.id, user), [&] { return groups_.EditMembersNode(at.account); },
      [&] { host_.BringOthersInStep(*this, Change::kAccounts); });
}

void GroupsPage::RemovePermission(const Selection& at) {
  static constexpr LinkKind kKind{L"PG", app::kSelectToRemovePermission, app::kInGroupPermissions,
                                  app::kAskRemoveGroupPermission, app::kPermissionRemoved};
  if (at.tag == kKind.leafTag && ProtectGroup(context_.accounts, at.id, {}).permissions) return;
  const std::int32_t permission = lookup.GetPermID(at.key);
  RemoveLink(
      at, kKind, Access().EndsWithoutGroupPermission(at.id, permission),
      data::SqlDeleteGroupPermission(at.id, permission),
      [&] { return groups_.EditGroupPermissionsNode(at.account); },
      [&] { host_.BringOthersInStep(*this, Change::kGroupPermissions); });
}

}  // namespace browser
