// The commands of a page from its tree: context menu, keys and clipboard.

#include <algorithm>
#include <vector>

#include "app/StringIds.h"
#include "browser/pages/AccountPage.h"
#include "browser/trees/SubtreeText.h"
#include "browser/trees/TreeImages.h"
#include "controls/Desktop.h"
#include "controls/PopupMenu.h"

namespace browser {
namespace {

using controls::NodeId;

// The commands of the menu; those of a button array stand together, Index added.
constexpr int kNoCommand = 0;
constexpr int kAccountCommand = 1;  // Edit, Delete, New
constexpr int kFirstLinkCommand = 11;
constexpr int kSecondLinkCommand = 21;
constexpr int kCopyCommand = 31;
constexpr int kExpandCommand = 32;
constexpr int kCollapseCommand = 33;
constexpr int kGoToCommand = 34;
constexpr int kGoBackCommand = 35;
constexpr int kPageCommand = 41;  // the page's own

std::wstring WithoutMnemonic(std::wstring caption) {
  caption.erase(std::remove(caption.begin(), caption.end(), L'&'), caption.end());
  return caption;
}

void AddAccountSection(std::vector<controls::MenuItem>& items,
                       const controls::CommandButton (&buttons)[3]) {
  int command = kAccountCommand;
  for (const controls::CommandButton& button : buttons) {
    items.push_back({command++, button.Caption(), button.Enabled()});
  }
}

// The buttons of a section, named with it: two sections have buttons of the same captions.
void AddLinkSection(std::vector<controls::MenuItem>& items, int command,
                    const controls::Frame& frame, const controls::CommandButton (&buttons)[2]) {
  items.push_back({});
  for (const controls::CommandButton& button : buttons) {
    items.push_back({command++, frame.Caption() + L" : " + WithoutMnemonic(button.Caption()),
                     button.Enabled()});
  }
}

}  // namespace

void AccountPage::TreeView1_ContextMenu(NodeId node) {
  const controls::TreeNodes& nodes = TreeView1.Nodes();
  const bool open = nodes.Expanded(node);
  const bool hasChildren = nodes.HasChildren(node);
  const auto text = [this](int id) { return Global().LoadResString(id); };
  std::vector<controls::MenuItem> items;
  AddAccountSection(items, cmdAccount);
  AddLinkSection(items, kFirstLinkCommand, fraFirst, cmdFirst);
  AddLinkSection(items, kSecondLinkCommand, fraSecond, cmdSecond);
  items.push_back({});
  items.push_back({kCopyCommand, text(app::kCopy), true});
  items.push_back({kExpandCommand, text(app::kExpand), hasChildren && !open});
  items.push_back({kCollapseCommand, text(app::kCollapse), hasChildren && open});
  items.push_back({});
  const auto withKey = [&](int caption, int key) { return text(caption) + L"\t" + text(key); };
  items.push_back(
      {kGoToCommand, withKey(app::kGoToAccount, app::kEnterKey), Destination(node).has_value()});
  items.push_back({kGoBackCommand, withKey(app::kGoBack, app::kBackspaceKey), host_.CanGoBack()});
  if (!commands_.empty()) items.push_back({});
  int number = kPageCommand;
  for (const MenuCommand& command : commands_) {
    items.push_back({number++, withKey(command.caption, command.keyName), !command.Why(node)});
  }
  Perform(node, controls::ShowPopupMenu(TreeView1, node, items));
}

AccountPage::MenuCommand AccountPage::ExportCommand() {
  return {app::kExportRights, app::kCtrlE, controls::kKeyControl + 'E',
          [](NodeId) { return WhyOff{}; }, [this] { host_.ExportRights(); }};
}

void AccountPage::Perform(NodeId node, int command) {
  if (command == kCopyCommand) {
    TreeView1_Copy(node);
  } else if (command == kExpandCommand || command == kCollapseCommand) {
    TreeView1.SetExpanded(node, command == kExpandCommand);
  } else if (command == kGoToCommand) {
    GoToAccount(node);
  } else if (command == kGoBackCommand) {
    GoBack();
  } else if (command >= kPageCommand) {
    commands_[static_cast<std::size_t>(command - kPageCommand)].Do();
  } else if (command >= kAccountCommand) {
    ButtonOf(command).Click();
  }
}

controls::CommandButton& AccountPage::ButtonOf(int command) {
  if (command >= kSecondLinkCommand) return cmdSecond[command - kSecondLinkCommand];
  if (command >= kFirstLinkCommand) return cmdFirst[command - kFirstLinkCommand];
  return cmdAccount[command - kAccountCommand];
}

// A key for a button that is off has the status line say what the button's tip says.
void AccountPage::Press(int command) {
  if (command == kNoCommand) return;
  const controls::CommandButton& button = ButtonOf(command);
  button.Enabled() ? button.Click() : host_.ShowDone(button.WhyDisabled());
}

std::optional<Account> AccountPage::Destination(NodeId node) const {
  const std::optional<Account> account = AccountAt(node);
  return account && host_.Has(*account) ? account : std::nullopt;
}

void AccountPage::GoToAccount(NodeId node) {
  if (const std::optional<Account> account = Destination(node)) host_.GoTo(*account);
}

// Without a way back the key does what it does in any tree.
void AccountPage::GoBack() {
  if (host_.GoBack()) return;
  const NodeId node = TreeView1.SelectedNode();
  const NodeId above = node == controls::kNoNode ? node : TreeView1.Nodes().Parent(node);
  if (above != controls::kNoNode) ShowNode(above);
}

void AccountPage::TreeView1_Copy(NodeId node) {
  if (!Global().desktop.SetClipboardText(SubtreeText(TreeView1.Nodes(), node))) {
    Global().desktop.Beep();
  }
}

// Folders, the root among them, are drawn open while they are.
void AccountPage::TreeView1_Expand(NodeId node, bool expanded) {
  if (TreeView1.Nodes().Image(node) <= kFolderOpen) {
    TreeView1.SetImage(node, expanded ? kFolderOpen : kFolderClosed);
  }
  // Closing a node may have passed the selection to it.
  if (!expanded) RefreshSelection();
}

void AccountPage::KeyDown(int keyCode) {
  if (FindKeyDown(keyCode) || !TreeView1.HasFocus()) return;
  const NodeId node = TreeView1.SelectedNode();
  if (keyCode == controls::kKeyDelete) Press(CommandOfDelete(node));
  if (keyCode == controls::kKeyReturn) GoToAccount(node);
  if (keyCode == controls::kKeyBack) GoBack();
  if (keyCode == controls::kKeyF2) Press(kAccountCommand + kEditButton);
  for (const MenuCommand& command : commands_) {
    if (keyCode != command.keyCode) continue;
    const WhyOff why = command.Why(node);
    return why ? host_.ShowDone(TextOf(why)) : command.Do();
  }
}

// On a folder Delete does nothing, since it could only mean the account above.
int AccountPage::CommandOfDelete(NodeId node) const {
  const std::wstring tag = lookup.GetTypeNode(KeyOf(node));
  if (tag == L"US" || tag == L"GR") return kAccountCommand + kDeleteButton;
  if (tag == L"GU" || tag == L"UG") return kFirstLinkCommand + kRemoveButton;
  if (tag == L"PU" || tag == L"PG" || tag == L"PA") return kSecondLinkCommand + kRemoveButton;
  return kNoCommand;
}

}  // namespace browser
