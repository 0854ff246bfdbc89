#include "browser/frmUserGroupPerm.h"

#include <utility>

#include "app/ErrorReport.h"
#include "app/MShowHelp.h"
#include "app/StringIds.h"
#include "browser/pages/WaitPointer.h"
#include "browser/rules/TreeKeys.h"
#include "browser/trees/TreeImages.h"
#include "controls/Desktop.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"

namespace browser {
namespace {

// How often the status line tells how far a tree has been read.
constexpr std::chrono::milliseconds kProgressInterval{100};

constexpr const wchar_t* kExecutableName = L"uadmin.exe";

}  // namespace

frmUserGroupPerm::frmUserGroupPerm(app::mGlobal& global)
    : Form(global.desktop, IDD_USER_GROUP_PERM),
      TabStrip1(*this, IDC_TAB),
      lblTree{{*this, IDC_LBL_TREE_USERS}, {*this, IDC_LBL_TREE_GROUPS}},
      TreeView1{{*this, IDC_TREE_USERS}, {*this, IDC_TREE_GROUPS}},
      fraUser(*this, IDC_FRA_USER),
      cmdUser{{*this, IDC_CMD_USER}, {*this, IDC_CMD_USER + 1}, {*this, IDC_CMD_USER + 2}},
      fraMemberOf(*this, IDC_FRA_MEMBER_OF),
      cmdMemberOf{{*this, IDC_CMD_MEMBER_OF}, {*this, IDC_CMD_MEMBER_OF + 1}},
      fraUserPermission(*this, IDC_FRA_USER_PERMISSION),
      cmdUserPermission{{*this, IDC_CMD_USER_PERMISSION}, {*this, IDC_CMD_USER_PERMISSION + 1}},
      fraGroup(*this, IDC_FRA_GROUP),
      cmdGroup{{*this, IDC_CMD_GROUP}, {*this, IDC_CMD_GROUP + 1}, {*this, IDC_CMD_GROUP + 2}},
      fraMember(*this, IDC_FRA_MEMBER),
      cmdMember{{*this, IDC_CMD_MEMBER}, {*this, IDC_CMD_MEMBER + 1}},
      fraGroupPermission(*this, IDC_FRA_GROUP_PERMISSION),
      cmdGroupPermission{{*this, IDC_CMD_GROUP_PERMISSION}, {*this, IDC_CMD_GROUP_PERMISSION + 1}},
      lblStatus(*this, IDC_STATUS),
      cmdBtn{{*this, IDC_CMD_BTN}, {*this, IDC_CMD_BTN + 1}},
      cmdAbout(*this, IDC_CMD_ABOUT),
      Command1(*this, IDC_HELP_BUTTON),
      ImageList1(global.desktop, TreeImageResources()),
      exchange{global, TreeView1[0], TreeView1[1]},
      lookup(global, TreeView1[0], TreeView1[1]),
      global_(global),
      context_{global, captions_, accounts,
               [this](int done, int total) { ShowProgress(done, total); }},
      userTree_(context_, TreeView1[0], userCount, UserAccounts(context_, TreeView1[0])),
      groupTree_(context_, TreeView1[1], groupCount, GroupAccounts(context_)),
      rebuild_(context_, TreeView1, userTree_, groupTree_) {}

int frmUserGroupPerm::RefreshTree() {
  incomplete_ = true;
  try {
    const WaitPointer wait(global_.desktop);
    data::ReadScope read(*global_.databaseConnection);
    if (FillTree(0) == data::kDone && FillTree(1) == data::kDone) {
      read.Finish();
      incomplete_ = false;
    }
  } catch (...) {
    app::ReportError(global_, L"RefreshTree");
  }
  RefreshSelections(TabStrip1.SelectedTab());
  return incomplete_ ? data::kFailed : data::kDone;
}

// Builds one tree from nothing; the selection then is on its root, which is open.
int frmUserGroupPerm::FillTree(int Index) {
  controls::TreeView& tree = TreeView1[Index];
  const controls::TreeView::Update update(tree);
  tree.SetImageList(ImageList1);
  tree.Clear();
  const std::wstring& caption = Index == 0 ? captions_.usersRoot : captions_.groupsRoot;
  const int root = tree.Add(controls::kNoNode, kRootKey, 0, caption, kFolderClosed);
  tree.SetSorted(root, true);
  (Index == 0 ? userCount : groupCount) = 0;
  StartProgress(Index == 0 ? app::kReadingUsers : app::kReadingGroups);
  const int status = Index == 0 ? userTree_.Build(-1) : groupTree_.Build(-1);
  tree.SetSelectedNode(root);
  tree.SetExpanded(root, true);
  return status;
}

void frmUserGroupPerm::StartProgress(int text) {
  progressText_ = text;
  nextProgress_ = std::chrono::steady_clock::now() + kProgressInterval;
}

void frmUserGroupPerm::ShowProgress(int done, int total) {
  const auto now = std::chrono::steady_clock::now();
  // Of a tree that is read at once there is nothing to say that anybody could read.
  if (now < nextProgress_) return;
  nextProgress_ = now + kProgressInterval;
  lblStatus.SetPlainCaption(app::FillIn(global_.LoadResString(progressText_),
                                        {data::Decimal(done), data::Decimal(total)}));
  Repaint();
}

// What an error has left out comes first, then where the selected permission comes from.
void frmUserGroupPerm::ShowStatus() {
  if (incomplete_) {
    lblStatus.SetPlainCaption(global_.LoadResString(app::kIncomplete));
    return;
  }
  const std::wstring origin =
      TabStrip1.SelectedTab() == 0 ? OriginOf(TreeView1[0].SelectedNode()) : std::wstring();
  if (!origin.empty()) {
    lblStatus.SetPlainCaption(origin);
    return;
  }
  lblStatus.SetPlainCaption(app::FillIn(
      global_.LoadResString(app::kCounts),
      {data::Decimal(userCount), data::Decimal(groupCount), data::Decimal(permissionCount)}));
}

void frmUserGroupPerm::Rebuild(const std::function<int(FolderRebuild& rebuild)>& work) {
  const WaitPointer wait(global_.desktop);
  if (work(rebuild_) == data::kFailed) incomplete_ = true;
}

void frmUserGroupPerm::cmdBtn_Click(int Index) {
  if (Index == 0) {
    RefreshTree();
  } else {
    Unload();
  }
}

void frmUserGroupPerm::cmdAbout_Click() {
  try {
    global_.SessionServer->ShowAbout(kExecutableName, 0, 0);
  } catch (...) {
    app::ReportError(global_, L"cmdAbout_Click");
  }
}

void frmUserGroupPerm::Command1_Click() {
  app::MShowHelp(global_, *this, app::kTopicUserGroupPerm);
}

// Folders, the root among them, are drawn open while they are.
void frmUserGroupPerm::TreeView1_Expand(int Index, int node, bool expanded) {
  controls::TreeView& tree = TreeView1[Index];
  if (tree.Nodes().Image(node) <= kFolderOpen) {
    tree.SetImage(node, expanded ? kFolderOpen : kFolderClosed);
  }
  // Closing a node may have passed the selection to it.
  if (!expanded && isStarted) RefreshSelection(Index);
}

void frmUserGroupPerm::Form_KeyDown(int keyCode) {
  if (!isStarted) return;
  if (keyCode == controls::kKeyF5) cmdBtn_Click(0);
  if (keyCode == controls::kKeyF2 || keyCode == controls::kKeyDelete) TreeKey(keyCode);
}

void frmUserGroupPerm::Form_KeyUp(int keyCode) {
  if (keyCode == controls::kKeyF1) Command1_Click();
}

void frmUserGroupPerm::Form_Unload(bool& /*cancel*/) {
  global_.databaseConnection.reset();
  global_.SessionServer.reset();
}

}  // namespace browser
