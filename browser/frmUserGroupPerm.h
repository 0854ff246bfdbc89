#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "app/mGlobal.h"
#include "browser/AccountTree.h"
#include "browser/TreeContext.h"
#include "controls/CommandButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/ImageList.h"
#include "controls/Label.h"
#include "controls/TabStrip.h"
#include "controls/TreeView.h"

namespace browser {

// The main window: a tab with the users tree and one with the groups tree, each with the command
// buttons of its accounts and links. Its load attaches the program to a session; its unload lets
// the session server go.
class frmUserGroupPerm : public controls::Form {
 public:
  explicit frmUserGroupPerm(app::mGlobal& global);

  void Form_Load() override;
  void Form_Unload(bool& cancel) override;
  void Form_KeyDown(int keyCode) override;
  void Form_KeyUp(int keyCode) override;

  // Reads both trees anew. Returns kDone, or kFailed when an error, already reported, stopped it.
  int RefreshTree();

  controls::TabStrip TabStrip1;
  controls::Label lblTree[2];       // never on view: they name the trees for screen readers
  controls::TreeView TreeView1[2];  // 0 users, 1 groups
  controls::Frame fraUser;
  controls::CommandButton cmdUser[3];  // 0 Edit, 1 Delete, 2 New
  controls::Frame fraMemberOf;
  controls::CommandButton cmdMemberOf[2];  // 0 Assign, 1 Remove
  controls::Frame fraUserPermission;
  controls::CommandButton cmdUserPermission[2];  // 0 Assign, 1 Remove
  controls::Frame fraGroup;
  controls::CommandButton cmdGroup[3];  // 0 Edit, 1 Delete, 2 New
  controls::Frame fraMember;
  controls::CommandButton cmdMember[2];  // 0 Assign, 1 Remove
  controls::Frame fraGroupPermission;
  controls::CommandButton cmdGroupPermission[2];  // 0 Assign, 1 Remove
  controls::Label lblStatus;
  controls::CommandButton cmdBtn[2];  // 0 Refresh, 1 Exit
  controls::CommandButton cmdAbout;
  controls::CommandButton Command1;  // help
  controls::ImageList ImageList1;

  // Who may not be deleted or taken out; see ProtectedAccounts.
  ProtectedAccounts accounts;
  std::int16_t userCount = 0;
  std::int16_t groupCount = 0;
  std::int32_t permissionCount = 0;
  bool isStarted = false;

 private:
  // The layout and the captions (frmUserGroupPermLayout.cpp).
  void SettingControls();
  void SetPages();
  void SetAnchors();
  void SetEvents();
  void TabStrip1_Click();

  // The start-up (frmUserGroupPermStartUp.cpp).
  bool AttachToSession();
  void ShowRefusal();
  void TakeConnection();
  bool FindAccounts();
  bool GetCurrentUser();
  bool GetAdminUser();
  bool GetAdministratorsAndEveryoneGroup();
  void GetCountPerm();

  void cmdBtn_Click(int Index);
  void cmdAbout_Click();
  void Command1_Click();
  void TreeView1_Expand(int Index, int node, bool expanded);

  int FillTree(int Index);
  void ShowProgress(int done, int total);
  void ShowCounts();

  app::mGlobal& global_;
  TreeCaptions captions_;
  TreeContext context_;
  AccountTree userTree_;
  AccountTree groupTree_;
  int fillingTree_ = 0;
  std::chrono::steady_clock::time_point nextProgress_;
};

}  // namespace browser
