#include "browser/pages/UsersPage.h"

#include "app/Reported.h"
#include "app/StringIds.h"
#include "browser/rules/ButtonRules.h"
#include "browser/rules/EffectivePermissions.h"
#include "browser/rules/PermissionOrigin.h"
#include "browser/rules/Protection.h"
#include "browser/rules/TreeKeys.h"
#include "controls/MsgBox.h"
#include "data/MSQLStatement.h"
#include "data/NodeKey.h"
#include "data/ProtectedId.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmNewUser.h"
#include "resources/ResourceIds.h"

namespace browser {

using controls::NodeId;

namespace {

constexpr PageLayout kLayout{
    .tab = kUsersTab,
    .txtFind = IDC_FIND_USERS,
    .lblTree = IDC_LBL_TREE_USERS,
    .TreeView1 = IDC_TREE_USERS,
    .fraAccount = IDC_FRA_USER,
    .cmdAccount = IDC_CMD_USER,
    .fraFirst = IDC_FRA_MEMBER_OF,
    .cmdFirst = IDC_CMD_MEMBER_OF,
    .fraSecond = IDC_FRA_USER_PERMISSION,
    .cmdSecond = IDC_CMD_USER_PERMISSION,
    .treeName = app::kUsersTreeName,
    .accountCaption = app::kUsers,
    .firstCaption = app::kMemberOf,
    .secondCaption = app::kUserPermissions,
    .created = app::kUserCreated,
    .changed = app::kUserChanged,
    .deleted = app::kUserDeleted,
};

}  // namespace

UsersPage::UsersPage(controls::Form& form, const PageContext& context)
    : AccountPage(form, kLayout, context), users_(context.trees, TreeView1, accountCount) {
  for (const int Index : {kEditButton, kDeleteButton, kNewButton}) {
    cmdUser[Index].Click = [this, Index] { cmdUser_Click(Index); };
  }
  for (const int Index : {kAssignButton, kRemoveButton}) {
    cmdMemberOf[Index].Click = [this, Index] { cmdMemberOf_Click(Index); };
    cmdUserPermission[Index].Click = [this, Index] { cmdUserPermission_Click(Index); };
  }
  commands_ = {
      {app::kDuplicate, app::kCtrlD, controls::kKeyControl + 'D',
       [this](NodeId node) {
         return ButtonRuleOf(kUsersTab, lookup.GetTypeNode(KeyOf(node)), NamesAreKnown()).edit;
       },
       [this] { DuplicateUser(); }}};
  const std::vector<MenuCommand> lists = ListCommands();
  commands_.insert(commands_.end(), lists.begin(), lists.end());
  commands_.push_back(ExportCommand());
  commands_.push_back(JournalCommand());
  TreeView1.Tip = [this](NodeId node) { return OriginOf(node); };
}

int UsersPage::ReadingText() const {
  return app::kReadingUsers;
}

int UsersPage::UpdatingText() const {
  return app::kUpdatingUsers;
}

NodeId UsersPage::OwnerOf(std::wstring_view tag, NodeId node) const {
  return lookup.GetIndexUserNode(tag, node);
}

app::Outcome UsersPage::Update(Change change) {
  return change == Change::kAccounts ? users_.EditUserNode() : users_.EditAllPermissionsUserNode();
}

std::wstring UsersPage::OriginOf(NodeId node) const {
  return PermissionOrigin(Global(), TreeView1.Nodes(), exchange_.groupsTree.Nodes(), node);
}

// A permission that groups give leads to the first of them.
std::optional<Account> UsersPage::AccountAt(NodeId node) const {
  const std::wstring tag = lookup.GetTypeNode(KeyOf(node));
  const controls::TreeNodes& nodes = TreeView1.Nodes();
  if (tag == L"GU") return Account{kGroupsTab, nodes.Id(node)};
  if (tag != L"PU" && tag != L"PA") return std::nullopt;
  const NodeId user = OwnerOf(tag, node);
  if (tag == L"PA") {
    const controls::TreeNodes& groups = exchange_.groupsTree.Nodes();
    const PermissionSource source =
        EffectivePermissions(nodes, groups).SourceOf(user, nodes.Id(node));
    if (!source.groups.empty()) return Account{kGroupsTab, groups.Id(source.groups.front())};
  }
  return Account{kUsersTab, nodes.Id(user)};
}

void UsersPage::TreeUserNode(NodeId node) {
  static_cast<void>(app::Reported(Global(), L"TreeUserNode", [&] {
    ClearSelection();
    const std::wstring key = KeyOf(node);
    const std::wstring tag = lookup.GetTypeNode(key);
    ResetButtons(tag);
    if (OwnerOf(tag, node) == controls::kNoNode) return;
    exchange_.UserID = data::GetUserID(key);
    exchange_.UserName = lookup.GetUserName(tag, node);
    if (tag == L"GU") {
      exchange_.GroupID = data::GetGroupID(key);
      exchange_.GroupName = lookup.GetGroupName(tag, node);
    } else if (tag == L"PU") {
      selectedPermId = lookup.GetPermID(key);
      selectedPermName = lookup.GetPermName(tag, node);
    }
  }));
}

void UsersPage::CurentAndAdminUser(NodeId node) {
  static_cast<void>(app::Reported(Global(), L"CurentAndAdminUser", [&] {
    const std::wstring key = KeyOf(node);
    const UserProtection off =
        ProtectUser(context_.accounts, data::GetUserID(key), data::GetGroupID(key));
    IsRemoveAdministrator = !off.administrator;
    if (off.membership) Switch(fraMemberOf, cmdMemberOf[kRemoveButton], off.membership);
    if (off.account) Switch(fraUser, cmdUser[kDeleteButton], off.account);
  }));
}

void UsersPage::cmdUser_Click(int Index) {
  Run([this, Index](const Selection& at) {
    if (Index == kEditButton) return EditUser(at);
    if (Index == kDeleteButton) return DeleteUser(at);
    NewUser();
    return true;
  });
}

void UsersPage::cmdMemberOf_Click(int Index) {
  Run([this, Index](const Selection& at) {
    Index == kAssignButton ? AssignGroups(at) : RemoveMembership(at);
    return true;
  });
}

void UsersPage::cmdUserPermission_Click(int Index) {
  Run([this, Index](const Selection& at) {
    Index == kAssignButton ? AssignPermissions(at) : RemovePermission(at);
    return true;
  });
}

bool UsersPage::EditUser(const Selection& at) {
  if (WarnUnselected(at, app::kSelectUserToEdit, controls::kExclamation)) return false;
  if (!NamesAreKnown()) return true;
  dialogs::frmEditUser dialog(exchange_);
  dialog.IsRemoveAdministrator = IsRemoveAdministrator;
  dialog.AdminGroupID = context_.accounts.administratorsGroupId;
  dialog.EveryoneGroupID = context_.accounts.everyoneGroupId;
  dialog.UserID = at.id;
  dialog.ShowModal(TreeView1.Owner());
  if (exchange_.accountGone) ForgetAccount(at);
  if (!exchange_.AddNode) return true;
  // A folder that a rebuild closes has the selection read once more, and the exchange with it.
  const std::wstring text = exchange_.UserName;
  const std::wstring storedName = exchange_.StoredName;
  Rebuild([&] {
    return AllDone({users_.EditMemberOfNode(at.account), users_.EditUserPermissionsNode(at.account),
                    users_.EditAllPermissionsNode(at.account)});
  });
  // What "Admin" is called cannot have changed; the groups tree is left for the next refresh.
  if (!data::IsProtectedId(context_.accounts.adminUserId, at.id)) ShowEdited(at, text, storedName);
  TellDone(layout_.changed, {NameOf(at.account)});
  return true;
}

bool UsersPage::DeleteUser(const Selection& at) {
  if (WarnUnselected(at, app::kSelectUserToDelete, controls::kExclamation)) return false;
  if (!ProtectUser(context_.accounts, at.id, 0).account) {
    DeleteAccount(at, app::kAskDeleteUser, false, data::SqlMarkUserDeleted);
  }
  return true;
}

void UsersPage::NewUser() {
  if (!NamesAreKnown()) return;
  dialogs::frmNewUser dialog(exchange_);
  ShowNewUser(dialog);
}

// What the user at hand is in and holds himself, as the tree has it.
void UsersPage::DuplicateUser() {
  Run([this](const Selection& at) {
    if (at.id == -1 || !NamesAreKnown()) return true;
    const EffectivePermissions permissions(TreeView1.Nodes(), exchange_.groupsTree.Nodes());
    dialogs::frmNewUser dialog(exchange_);
    dialog.GroupIDs = permissions.GroupsOf(at.account);
    dialog.PermissionIDs = permissions.OwnOf(at.account);
    ShowNewUser(dialog);
    return true;
  });
}

void UsersPage::ShowNewUser(dialogs::frmNewUser& dialog) {
  dialog.EveryoneGroupID = context_.accounts.everyoneGroupId;
  dialog.ShowModal(TreeView1.Owner());
  if (exchange_.AddNode) ShowNew(exchange_.UserID);
}

void UsersPage::AssignGroups(const Selection& at) {
  if (at.id == -1) return;
  ShowListItem(Global().LoadResString(app::kGroups), context_.captions.memberOfCaption, at.id);
  if (!exchange_.AddNode) return;
  RebuildAndReveal(at, kMemberOfKey, [&] {
    return AllDone(
        {users_.EditMemberOfNode(at.account), users_.EditAllPermissionsNode(at.account)});
  });
  TellAssigned(at, app::kGroupAssigned, app::kGroupsAssigned);
  host_.BringOthersInStep(*this, Change::kAccounts);
}

void UsersPage::AssignPermissions(const Selection& at) {
  if (at.id == -1) return;
  ShowListItem(Global().LoadResString(app::kPermissions), context_.captions.userPermissionsCaption,
               at.id);
  if (!exchange_.AddNode) return;
  RebuildAndReveal(at, kUserPermissionsKey, [&] {
    return AllDone(
        {users_.EditUserPermissionsNode(at.account), users_.EditAllPermissionsNode(at.account)});
  });
  TellAssigned(at, app::kPermissionAssigned, app::kPermissionsAssigned);
}

// The groups tree is left as it is: the group goes on to list the user until it is next rebuilt.
void UsersPage::RemoveMembership(const Selection& at) {
  static constexpr LinkKind kKind{L"GU", app::kSelectToRemoveGroup, app::kInMemberOf,
                                  app::kAskRemoveMembership, app::kGroupRemoved};
  const std::int32_t group = data::GetGroupID(at.key);
  if (ProtectUser(context_.accounts, at.id, group).membership) return;
  RemoveLink(
      at, kKind, Access().EndsWithoutMembership(at.id, group),
      data::SqlDeleteMembership(group, at.id), [&] { return users_.EditMemberOfNode(at.account); },
      [&] { RebuildAllPermissions(at); });
}

void UsersPage::RemovePermission(const Selection& at) {
  static constexpr LinkKind kKind{L"PU", app::kSelectToRemovePermission, app::kInUserPermissions,
                                  app::kAskRemoveUserPermission, app::kPermissionRemoved};
  const std::int32_t permission = lookup.GetPermID(at.key);
  RemoveLink(
      at, kKind, Access().EndsWithoutUserPermission(at.id, permission),
      data::SqlDeleteUserPermission(at.id, permission),
      [&] { return users_.EditUserPermissionsNode(at.account); },
      [&] { RebuildAllPermissions(at); });
}

void UsersPage::RebuildAllPermissions(const Selection& at) {
  Rebuild([&] { return users_.EditAllPermissionsNode(at.account); });
}

}  // namespace browser
