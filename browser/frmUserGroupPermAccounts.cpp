// The commands of the main window that create, edit and delete whole accounts.

#include "app/ErrorReport.h"
#include "app/MQVXMsgBox.h"
#include "app/StringIds.h"
#include "browser/frmUserGroupPerm.h"
#include "browser/rules/Protection.h"
#include "browser/rules/TreeKeys.h"
#include "browser/trees/AccountRows.h"
#include "browser/trees/TreeIndex.h"
#include "controls/Desktop.h"
#include "data/MSQLStatement.h"
#include "data/ProtectedId.h"
#include "dialogs/frmEditGroup.h"
#include "dialogs/frmEditUser.h"
#include "dialogs/frmNewGroup.h"
#include "dialogs/frmNewUser.h"

namespace browser {

void frmUserGroupPerm::cmdUser_Click(int Index) {
  const Selection at = ReadSelection(kUsers);
  if (Index == 0 && !EditUser(at)) return;
  if (Index == 1 && !DeleteUser(at)) return;
  if (Index == 2) NewUser();
  RefreshSelections(kUsers);
}

void frmUserGroupPerm::cmdGroup_Click(int Index) {
  const Selection at = ReadSelection(kGroups);
  if (Index == 0 && !EditGroup(at)) return;
  if (Index == 1 && !DeleteGroup(at)) return;
  if (Index == 2) NewGroup();
  RefreshSelections(kGroups);
}

bool frmUserGroupPerm::WarnUnselected(const Selection& at, int text, int style) {
  if (at.id != -1) return false;
  global_.desktop.MsgBox(global_.LoadResString(text), style, global_.LoadResString(app::kTitle));
  return true;
}

bool frmUserGroupPerm::EditUser(const Selection& at) {
  if (WarnUnselected(at, app::kSelectUserToEdit, controls::kExclamation)) return false;
  dialogs::frmEditUser dialog(exchange);
  dialog.IsRemoveAdministrator = IsRemoveAdministrator;
  dialog.AdminGroupID = accounts.administratorsGroupId;
  dialog.EveryoneGroupID = accounts.everyoneGroupId;
  dialog.UserID = at.id;
  dialog.ShowModal(*this);
  if (exchange.accountGone) ForgetAccount(kUsers, at);
  if (!exchange.AddNode) return true;
  // A folder that a rebuild closes has the selection read anew, and the exchange with it.
  const std::wstring text = exchange.UserName;
  Rebuild([&](FolderRebuild& rebuild) {
    return AllDone({rebuild.EditMemberOfNode(at.account),
                    rebuild.EditUserPermissionsNode(at.account),
                    rebuild.EditAllPermissionsNode(at.account)});
  });
  // What "Admin" is called cannot have changed; the groups tree is left for the next refresh.
  if (!data::IsProtectedId(accounts.adminUserId, at.id)) ShowEdited(kUsers, at, text);
  return true;
}

bool frmUserGroupPerm::EditGroup(const Selection& at) {
  if (WarnUnselected(at, app::kSelectGroupToEdit, controls::kOkOnly)) return false;
  dialogs::frmEditGroup dialog(exchange);
  dialog.GroupID = at.id;
  dialog.ShowModal(*this);
  if (exchange.accountGone) ForgetAccount(kGroups, at);
  if (!exchange.AddNode) return true;
  const std::wstring text = exchange.GroupName;
  Rebuild([&](FolderRebuild& rebuild) {
    return AllDone(
        {rebuild.EditMembersNode(at.account), rebuild.EditGroupPermissionsNode(at.account)});
  });
  ShowEdited(kGroups, at, text);
  return true;
}

void frmUserGroupPerm::ShowEdited(int tree, const Selection& at, const std::wstring& text) {
  TreeView1[tree].SetText(at.account, text);
  TreeView1[tree].SetStoredName(at.account, exchange.StoredName);
  TreeView1[tree].SetExpanded(at.account, at.expanded);
  BringInStep(1 - tree);
}

bool frmUserGroupPerm::DeleteUser(const Selection& at) {
  if (WarnUnselected(at, app::kSelectUserToDelete, controls::kExclamation)) return false;
  if (!ProtectUser(accounts, at.id, 0).account) {
    DeleteAccount(kUsers, at, app::kAskDeleteUser, data::SqlMarkUserDeleted);
  }
  return true;
}

bool frmUserGroupPerm::DeleteGroup(const Selection& at) {
  if (WarnUnselected(at, app::kSelectGroupToDelete, controls::kExclamation)) return false;
  if (!ProtectGroup(accounts, at.id, {}).account) {
    DeleteAccount(kGroups, at, app::kAskDeleteGroup, data::SqlMarkGroupDeleted);
  }
  return true;
}

void frmUserGroupPerm::DeleteAccount(int tree, const Selection& at, int question,
                                     std::wstring (*markDeleted)(std::wstring_view name,
                                                                 std::int32_t id)) {
  const int account = AccountAbove(tree, at);
  if (app::MQVXMsgBox(global_).AskYesNo(global_.LoadResString(question)) != controls::kResultYes) {
    return;
  }
  const std::wstring name = TreeView1[tree].Nodes().StoredName(account);
  const auto rows = DeleteRecord(*global_.databaseConnection, markDeleted(name, at.id));
  if (!rows) return;
  RemoveAccount(tree, account);
  if (*rows == 0) TellChangedMeanwhile();
}

// Folders are recognised by their captions; the folder of all permissions, and a leaf that is named
// like a folder, lead that search astray. Then the account is the one that the key names.
int frmUserGroupPerm::AccountAbove(int tree, const Selection& at) const {
  const int account =
      tree == kUsers ? lookup.GetIndParentNode(kUsers, at.node, captions_.userPermissionsCaption,
                                               captions_.memberOfCaption)
                     : lookup.GetIndParentNode(kGroups, at.node, captions_.groupPermissionsCaption,
                                               captions_.membersCaption);
  const controls::TreeNodes& nodes = TreeView1[tree].Nodes();
  return nodes.Exists(account) && nodes.Parent(account) == nodes.Root() ? account : at.account;
}

void frmUserGroupPerm::RemoveAccount(int tree, int account) {
  --(tree == kUsers ? userCount : groupCount);
  TreeView1[tree].Remove(account);
  BringInStep(1 - tree);
}

// Somebody else has deleted the account while its dialog was open.
void frmUserGroupPerm::ForgetAccount(int tree, const Selection& at) {
  RemoveAccount(tree, at.account);
  TellChangedMeanwhile();
}

void frmUserGroupPerm::NewUser() {
  dialogs::frmNewUser dialog(exchange);
  dialog.EveryoneGroupID = accounts.everyoneGroupId;
  dialog.ShowModal(*this);
  if (exchange.AddNode) ShowNew(kUsers, kUserKey, exchange.UserID, exchange.UserName);
}

void frmUserGroupPerm::NewGroup() {
  dialogs::frmNewGroup dialog(exchange);
  dialog.ShowModal(*this);
  if (exchange.AddNode) ShowNew(kGroups, kGroupKey, exchange.GroupID, exchange.GroupName);
}

void frmUserGroupPerm::ShowNew(int tree, const controls::KeyForm& keyForm, std::int32_t id,
                               const std::wstring& text) {
  AccountTree& builder = tree == kUsers ? userTree_ : groupTree_;
  Rebuild([&](FolderRebuild&) { return builder.Build(id); });
  CountNew(tree);
  const controls::TreeNodes& nodes = TreeView1[tree].Nodes();
  int added = lookup.GetIndexNode(tree, nodes.Text(nodes.Root()) + L"\\" + text);
  // Another node may have the same path, and a text may be mapped when it is shown.
  if (added == controls::kNoNode || nodes.Parent(added) != nodes.Root() || nodes.Id(added) != id) {
    added = nodes.FindChild(nodes.Root(), keyForm, id);
  }
  if (added != controls::kNoNode) TreeView1[tree].SetSelectedNode(added);
  BringInStep(1 - tree);
}

// An account too many is in the database all the same, and the trees go on to show it.
void frmUserGroupPerm::CountNew(int tree) {
  try {
    CountOneMore(tree == kUsers ? userCount : groupCount);
  } catch (...) {
    app::ReportError(global_, tree == kUsers ? L"cmdUser_Click" : L"cmdGroup_Click");
  }
}

void frmUserGroupPerm::BringInStep(int tree) {
  StartProgress(tree == kUsers ? app::kUpdatingUsers : app::kUpdatingGroups);
  Rebuild([tree](FolderRebuild& rebuild) {
    return tree == kUsers ? rebuild.EditUserNode() : rebuild.EditGroupNode();
  });
}

}  // namespace browser
