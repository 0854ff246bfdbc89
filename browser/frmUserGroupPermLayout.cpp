// The main window's captions, pages, resizing and the wiring of its events.

#include "app/StringIds.h"
#include "browser/frmUserGroupPerm.h"
#include "resources/ResourceIds.h"

namespace browser {

void frmUserGroupPerm::SettingControls() {
  const auto text = [this](int id) { return global_.LoadResString(id); };
  captions_ = TreeCaptions::Load(global_);
  SetCaption(text(app::kTitle));
  SetIcon(IDI_PROGRAM);
  TabStrip1.AddTab(text(app::kUsersTab));
  TabStrip1.AddTab(text(app::kGroupsTab));
  lblTree[0].SetPlainCaption(text(app::kUsersTreeName));
  lblTree[1].SetPlainCaption(text(app::kGroupsTreeName));
  for (controls::Label& label : lblTree) label.SetVisible(false);
  // Before there is anything to be read: drawing the images takes its time.
  for (controls::TreeView& tree : TreeView1) tree.SetImageList(ImageList1);
  fraUser.SetCaption(text(app::kUsers));
  fraMemberOf.SetCaption(captions_.memberOfCaption);
  fraUserPermission.SetCaption(captions_.userPermissionsCaption);
  fraGroup.SetCaption(text(app::kGroups));
  fraMember.SetCaption(captions_.membersCaption);
  fraGroupPermission.SetCaption(captions_.groupPermissionsCaption);
  constexpr int kAccountCaptions[] = {app::kEdit, app::kDelete, app::kNew};
  for (int Index = 0; Index < 3; ++Index) {
    cmdUser[Index].SetCaption(text(kAccountCaptions[Index]));
    cmdGroup[Index].SetCaption(text(kAccountCaptions[Index]));
  }
  constexpr int kLinkCaptions[] = {app::kAssign, app::kRemove};
  for (controls::CommandButton* link :
       {cmdMemberOf, cmdUserPermission, cmdMember, cmdGroupPermission}) {
    for (int Index = 0; Index < 2; ++Index) link[Index].SetCaption(text(kLinkCaptions[Index]));
  }
  cmdBtn[0].SetCaption(text(app::kRefresh));
  cmdBtn[1].SetCaption(text(app::kExit));
  cmdAbout.SetCaption(text(app::kAbout));
  Command1.SetCaption(text(app::kHelp));
  // Exit stands last in its row; the Tab key is to come to it last, too.
  cmdBtn[1].SetTabIndex(Command1.TabIndex());
  lblStatus.SetPlainCaption({});
}

// Ties each button to the frame of its section; frames and trees are what a tab shows and hides.
void frmUserGroupPerm::SetPages() {
  for (controls::CommandButton& button : cmdUser) button.SetContainer(fraUser);
  for (controls::CommandButton& button : cmdMemberOf) button.SetContainer(fraMemberOf);
  for (controls::CommandButton& button : cmdUserPermission) button.SetContainer(fraUserPermission);
  for (controls::CommandButton& button : cmdGroup) button.SetContainer(fraGroup);
  for (controls::CommandButton& button : cmdMember) button.SetContainer(fraMember);
  for (controls::CommandButton& button : cmdGroupPermission) {
    button.SetContainer(fraGroupPermission);
  }
  for (controls::CommandButton* buttons : {cmdUser, cmdGroup}) {
    for (int Index = 0; Index < 3; ++Index) buttons[Index].SetEnabled(false);
  }
  for (controls::CommandButton* link :
       {cmdMemberOf, cmdUserPermission, cmdMember, cmdGroupPermission}) {
    for (int Index = 0; Index < 2; ++Index) link[Index].SetEnabled(false);
  }
  ShowPage();
}

void frmUserGroupPerm::TabStrip1_Click() {
  ShowPage();
  if (isStarted) RefreshSelection(TabStrip1.SelectedTab());
}

// What is hidden loses the focus; a tree hands it to the one that takes its place.
void frmUserGroupPerm::ShowPage() {
  const int shown = TabStrip1.SelectedTab();
  const int hidden = 1 - shown;
  const bool treeHadFocus = TreeView1[hidden].HasFocus();
  TreeView1[shown].SetVisible(true);
  if (treeHadFocus) TreeView1[shown].SetFocus();
  TreeView1[hidden].SetVisible(false);
  for (controls::Frame* frame : {&fraUser, &fraMemberOf, &fraUserPermission}) {
    frame->SetVisible(shown == 0);
  }
  for (controls::Frame* frame : {&fraGroup, &fraMember, &fraGroupPermission}) {
    frame->SetVisible(shown == 1);
  }
}

// The trees take what the window gains; the buttons keep to its right and lower edges.
void frmUserGroupPerm::SetAnchors() {
  using namespace controls;
  const unsigned all = kAnchorLeft | kAnchorTop | kAnchorRight | kAnchorBottom;
  TabStrip1.SetAnchors(all);
  for (TreeView& tree : TreeView1) tree.SetAnchors(all);
  const unsigned right = kAnchorTop | kAnchorRight;
  for (Frame* frame :
       {&fraUser, &fraMemberOf, &fraUserPermission, &fraGroup, &fraMember, &fraGroupPermission}) {
    frame->SetAnchors(right);
  }
  for (CommandButton* buttons : {cmdUser, cmdGroup}) {
    for (int Index = 0; Index < 3; ++Index) buttons[Index].SetAnchors(right);
  }
  for (CommandButton* link : {cmdMemberOf, cmdUserPermission, cmdMember, cmdGroupPermission}) {
    for (int Index = 0; Index < 2; ++Index) link[Index].SetAnchors(right);
  }
  lblStatus.SetAnchors(kAnchorLeft | kAnchorRight | kAnchorBottom);
  for (CommandButton* button : {&cmdBtn[0], &cmdBtn[1], &cmdAbout, &Command1}) {
    button->SetAnchors(kAnchorRight | kAnchorBottom);
  }
  SetResizable(true);
}

void frmUserGroupPerm::SetEvents() {
  TabStrip1.Click = [this] { TabStrip1_Click(); };
  for (int Index = 0; Index < 2; ++Index) {
    cmdBtn[Index].Click = [this, Index] { cmdBtn_Click(Index); };
    TreeView1[Index].NodeClick = [this, Index](int) { RefreshSelection(Index); };
    TreeView1[Index].ContextMenu = [this, Index](int node) { TreeView1_ContextMenu(Index, node); };
    TreeView1[Index].Copy = [this, Index](int node) { TreeView1_Copy(Index, node); };
    TreeView1[Index].Expand = [this, Index](int node) { TreeView1_Expand(Index, node, true); };
    TreeView1[Index].Collapse = [this, Index](int node) { TreeView1_Expand(Index, node, false); };
  }
  TreeView1[0].Tip = [this](int node) { return OriginOf(node); };
  SetCommands();
  cmdAbout.Click = [this] { cmdAbout_Click(); };
  Command1.Click = [this] { Command1_Click(); };
}

void frmUserGroupPerm::SetCommands() {
  for (int Index = 0; Index < 3; ++Index) {
    cmdUser[Index].Click = [this, Index] { cmdUser_Click(Index); };
    cmdGroup[Index].Click = [this, Index] { cmdGroup_Click(Index); };
  }
  for (int Index = 0; Index < 2; ++Index) {
    cmdMemberOf[Index].Click = [this, Index] { cmdMemberOf_Click(Index); };
    cmdUserPermission[Index].Click = [this, Index] { cmdUserPermission_Click(Index); };
    cmdMember[Index].Click = [this, Index] { cmdMember_Click(Index); };
    cmdGroupPermission[Index].Click = [this, Index] { cmdGroupPermission_Click(Index); };
  }
}

}  // namespace browser
