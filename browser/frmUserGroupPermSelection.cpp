// What the selected nodes of the main window stand for, and the buttons that they switch on.

#include "app/ErrorReport.h"
#include "browser/frmUserGroupPerm.h"
#include "browser/rules/ButtonRules.h"
#include "browser/rules/Protection.h"
#include "data/NodeKey.h"
#include "data/Text.h"

namespace browser {
namespace {

void SetButtons(const ButtonRule& rule, controls::CommandButton (&account)[3],
                controls::CommandButton (&first)[2], controls::CommandButton (&second)[2]) {
  account[0].SetEnabled(rule.account);
  account[1].SetEnabled(rule.account);
  account[2].SetEnabled(true);
  first[0].SetEnabled(rule.assignFirst);
  first[1].SetEnabled(rule.removeFirst);
  second[0].SetEnabled(rule.assignSecond);
  second[1].SetEnabled(rule.removeSecond);
}

}  // namespace

std::wstring frmUserGroupPerm::KeyOf(int tree, int node) const {
  return node == controls::kNoNode ? std::wstring() : TreeView1[tree].Nodes().Key(node);
}

void frmUserGroupPerm::ClearSelection() {
  exchange.UserName.clear();
  exchange.GroupName.clear();
  selectedPermName.clear();
  exchange.UserID = -1;
  exchange.GroupID = -1;
  selectedPermId = -1;
}

void frmUserGroupPerm::ResetUserButton(std::wstring_view tag) {
  SetButtons(ButtonRuleOf(tag), cmdUser, cmdMemberOf, cmdUserPermission);
}

void frmUserGroupPerm::ResetGroupButton(std::wstring_view tag) {
  SetButtons(ButtonRuleOf(tag), cmdGroup, cmdMember, cmdGroupPermission);
}

void frmUserGroupPerm::TreeUserNode(int node) {
  try {
    ClearSelection();
    const std::wstring key = KeyOf(0, node);
    const std::wstring tag = lookup.GetTypeNode(key);
    ResetUserButton(tag);
    if (lookup.GetIndexUserNode(tag, node) == L"-1") return;
    exchange.UserID = data::GetUserID(key);
    exchange.UserName = lookup.GetUserName(tag, node);
    if (tag == L"GU") {
      exchange.GroupID = data::GetGroupID(key);
      exchange.GroupName = lookup.GetGroupName(tag, node);
    } else if (tag == L"PU") {
      selectedPermId = lookup.GetPermID(key);
      selectedPermName = lookup.GetPermName(tag, node);
    }
  } catch (...) {
    app::ReportError(global_, L"TreeUserNode");
  }
}

void frmUserGroupPerm::TreeGroupNode(int node) {
  try {
    ClearSelection();
    const std::wstring key = KeyOf(1, node);
    const std::wstring tag = lookup.GetTypeNode(key);
    ResetGroupButton(tag);
    if (lookup.GetIndexGroupNode(tag, node) == L"-1") return;
    exchange.GroupID = data::GetGroupID(key);
    exchange.GroupName = lookup.GetGroupName(tag, node);
    if (tag == L"UG") {
      exchange.UserID = data::GetUserID(key);
      exchange.UserName = lookup.GetUserName(tag, node);
    } else if (tag == L"PG") {
      selectedPermId = lookup.GetPermID(key);
      selectedPermName = lookup.GetPermName(tag, node);
    }
  } catch (...) {
    app::ReportError(global_, L"TreeGroupNode");
  }
}

void frmUserGroupPerm::CurentAndAdminUser(int node) {
  try {
    const std::wstring key = KeyOf(0, node);
    const UserProtection off = ProtectUser(accounts, data::GetUserID(key), data::GetGroupID(key));
    IsRemoveAdministrator = !off.administrator;
    if (off.membership) cmdMemberOf[1].SetEnabled(false);
    if (off.account) cmdUser[1].SetEnabled(false);
  } catch (...) {
    app::ReportError(global_, L"CurentAndAdminUser");
  }
}

void frmUserGroupPerm::AdminAndEveryoneGroup(int node) {
  try {
    const std::wstring text =
        node == controls::kNoNode ? std::wstring() : TreeView1[1].Nodes().Text(node);
    const GroupProtection off = ProtectGroup(accounts, data::GetGroupID(KeyOf(1, node)), text);
    IsRemoveAdmin = !off.admin;
    if (off.account) cmdGroup[1].SetEnabled(false);
    if (off.member) cmdMember[1].SetEnabled(false);
    if (off.permissions) {
      cmdGroupPermission[0].SetEnabled(false);
      cmdGroupPermission[1].SetEnabled(false);
    }
  } catch (...) {
    app::ReportError(global_, L"AdminAndEveryoneGroup");
  }
}

void frmUserGroupPerm::RefreshSelection(int tree) {
  const int node = TreeView1[tree].SelectedNode();
  if (tree == 0) {
    TreeUserNode(node);
    CurentAndAdminUser(node);
  } else {
    TreeGroupNode(node);
    AdminAndEveryoneGroup(node);
  }
  ShowStatus();
}

// A command may have taken away what was selected in the other tree. The command's own comes last:
// its selection is what counts.
void frmUserGroupPerm::RefreshSelections(int tree) {
  RefreshSelection(1 - tree);
  RefreshSelection(tree);
}

// Commands go by what is selected at the moment they are given, not by what was when the selection
// last changed.
frmUserGroupPerm::Selection frmUserGroupPerm::ReadSelection(int tree) {
  Selection at;
  at.node = TreeView1[tree].SelectedNode();
  at.key = KeyOf(tree, at.node);
  at.tag = lookup.GetTypeNode(at.key);
  at.account = data::ToInteger(tree == 0 ? lookup.GetIndexUserNode(at.tag, at.node)
                                         : lookup.GetIndexGroupNode(at.tag, at.node));
  if (at.account != controls::kNoNode) {
    at.expanded = TreeView1[tree].Nodes().Expanded(at.account);
    at.id = tree == 0 ? data::GetUserID(at.key) : data::GetGroupID(at.key);
  }
  (tree == 0 ? exchange.UserID : exchange.GroupID) = at.id;
  exchange.AddNode = false;
  exchange.accountGone = false;
  if (tree == 0) {
    CurentAndAdminUser(at.node);
  } else {
    AdminAndEveryoneGroup(at.node);
  }
  return at;
}

}  // namespace browser
