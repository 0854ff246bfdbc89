// The commands of the main window from the trees: context menu, keys and clipboard, and what the
// window tells about a permission.

#include <algorithm>
#include <vector>

#include "app/StringIds.h"
#include "browser/frmUserGroupPerm.h"
#include "browser/rules/PermissionOrigin.h"
#include "browser/trees/SubtreeText.h"
#include "controls/Desktop.h"
#include "controls/PopupMenu.h"

namespace browser {
namespace {

// The commands of the menu; those of a button array stand together, Index added.
enum MenuCommand : int {
  kAccountCommand = 1,  // Edit, Delete, New
  kFirstLinkCommand = 11,
  kSecondLinkCommand = 21,
  kCopyCommand = 31,
  kExpandCommand = 32,
  kCollapseCommand = 33,
};

std::wstring WithoutMnemonic(std::wstring caption) {
  caption.erase(std::remove(caption.begin(), caption.end(), L'&'), caption.end());
  return caption;
}

// The buttons of a section, named with it: two sections have buttons of the same captions.
void AddSection(std::vector<controls::MenuItem>& items, int command, const controls::Frame& frame,
                const controls::CommandButton (&buttons)[2]) {
  items.push_back({});
  for (int Index = 0; Index < 2; ++Index) {
    items.push_back({command + Index,
                     frame.Caption() + L" : " + WithoutMnemonic(buttons[Index].Caption()),
                     buttons[Index].Enabled()});
  }
}

}  // namespace

void frmUserGroupPerm::TreeView1_ContextMenu(int Index, int node) {
  const bool users = Index == 0;
  const auto& account = users ? cmdUser : cmdGroup;
  std::vector<controls::MenuItem> items;
  for (int i = 0; i < 3; ++i) {
    items.push_back({kAccountCommand + i, account[i].Caption(), account[i].Enabled()});
  }
  AddSection(items, kFirstLinkCommand, users ? fraMemberOf : fraMember,
             users ? cmdMemberOf : cmdMember);
  AddSection(items, kSecondLinkCommand, users ? fraUserPermission : fraGroupPermission,
             users ? cmdUserPermission : cmdGroupPermission);
  const controls::TreeNodes& nodes = TreeView1[Index].Nodes();
  const bool open = nodes.Expanded(node);
  items.push_back({});
  items.push_back({kCopyCommand, global_.LoadResString(app::kCopy), true});
  items.push_back(
      {kExpandCommand, global_.LoadResString(app::kExpand), nodes.HasChildren(node) && !open});
  items.push_back(
      {kCollapseCommand, global_.LoadResString(app::kCollapse), nodes.HasChildren(node) && open});
  Perform(Index, node, controls::ShowPopupMenu(TreeView1[Index], node, items));
}

void frmUserGroupPerm::Perform(int tree, int node, int command) {
  const bool users = tree == 0;
  if (command == kCopyCommand) {
    TreeView1_Copy(tree, node);
  } else if (command == kExpandCommand || command == kCollapseCommand) {
    TreeView1[tree].SetExpanded(node, command == kExpandCommand);
  } else if (command >= kSecondLinkCommand) {
    const int Index = command - kSecondLinkCommand;
    users ? cmdUserPermission_Click(Index) : cmdGroupPermission_Click(Index);
  } else if (command >= kFirstLinkCommand) {
    const int Index = command - kFirstLinkCommand;
    users ? cmdMemberOf_Click(Index) : cmdMember_Click(Index);
  } else if (command >= kAccountCommand) {
    const int Index = command - kAccountCommand;
    users ? cmdUser_Click(Index) : cmdGroup_Click(Index);
  }
}

void frmUserGroupPerm::TreeView1_Copy(int Index, int node) {
  if (!global_.desktop.SetClipboardText(SubtreeText(TreeView1[Index].Nodes(), node))) {
    global_.desktop.Beep();
  }
}

std::wstring frmUserGroupPerm::OriginOf(int node) const {
  return PermissionOrigin(global_, TreeView1[0].Nodes(), TreeView1[1].Nodes(), node);
}

// F2 edits the account, Delete takes away the account or the link that is selected: each only where
// the button for it is on. On a folder Delete does nothing, since it could only mean the account
// above.
void frmUserGroupPerm::TreeKey(int keyCode) {
  const int tree = TabStrip1.SelectedTab();
  if (!TreeView1[tree].HasFocus()) return;
  const bool users = tree == 0;
  const auto& account = users ? cmdUser : cmdGroup;
  const int node = TreeView1[tree].SelectedNode();
  const std::wstring tag = lookup.GetTypeNode(KeyOf(tree, node));
  int command = 0;
  if (keyCode == controls::kKeyF2) {
    if (account[0].Enabled()) command = kAccountCommand;
  } else if (tag == L"US" || tag == L"GR") {
    if (account[1].Enabled()) command = kAccountCommand + 1;
  } else if ((users ? cmdMemberOf : cmdMember)[1].Enabled()) {
    command = kFirstLinkCommand + 1;
  } else if ((users ? cmdUserPermission : cmdGroupPermission)[1].Enabled()) {
    command = kSecondLinkCommand + 1;
  }
  Perform(tree, node, command);
}

}  // namespace browser
