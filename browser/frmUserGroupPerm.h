#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/mGlobal.h"
#include "browser/trees/AccountTree.h"
#include "browser/trees/FolderRebuild.h"
#include "browser/trees/TreeContext.h"
#include "browser/trees/TreeLookup.h"
#include "controls/CommandButton.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/ImageList.h"
#include "controls/Label.h"
#include "controls/TabStrip.h"
#include "controls/TreeView.h"
#include "dialogs/Exchange.h"

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

  // Reads both trees anew. Returns data::kDone, or data::kFailed when an error, already reported,
  // stopped it.
  int RefreshTree();

  // The commands; their buttons call them. Index: see the buttons below.
  void cmdUser_Click(int Index);
  void cmdGroup_Click(int Index);
  void cmdMemberOf_Click(int Index);
  void cmdUserPermission_Click(int Index);
  void cmdMember_Click(int Index);
  void cmdGroupPermission_Click(int Index);

  // Take in what a node of the users or the groups tree stands for and set the buttons of its tab
  // for a node of this type.
  void TreeUserNode(int node);
  void TreeGroupNode(int node);
  // Switch off the buttons that would harm a protected account.
  void CurentAndAdminUser(int node);
  void AdminAndEveryoneGroup(int node);

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

  // What the selected node stands for, and what the dialogs hand back.
  dialogs::Exchange exchange;
  std::int32_t selectedPermId = -1;
  std::wstring selectedPermName;
  // Whether the user at hand may be taken out of "Administrators", and "Admin" out of the group.
  bool IsRemoveAdministrator = true;
  bool IsRemoveAdmin = true;

  const TreeLookup lookup;
  // Brings single folders up to date.
  FolderRebuild& Folders() { return rebuild_; }

 private:
  // What a command finds selected in its tree.
  struct Selection {
    int node = controls::kNoNode;
    std::wstring key;
    std::wstring tag;
    int account = controls::kNoNode;  // the account node above it or itself
    bool expanded = false;            // that node is open
    std::int32_t id = -1;             // the account; -1 without one
  };

  // What tells the removal of one kind of link from that of another.
  struct LinkKind {
    int tree;
    std::wstring_view leafTag;
    int warning1;
    int warning2;
    int question;
    int (FolderRebuild::*reread)(int account);  // brings the leaf's folder up to date
  };

  // The layout and the captions (frmUserGroupPermLayout.cpp).
  void SettingControls();
  void SetPages();
  void SetAnchors();
  void SetEvents();
  void SetCommands();
  void TabStrip1_Click();
  void ShowPage();

  // The start-up (frmUserGroupPermStartUp.cpp).
  bool AttachToSession();
  void ShowRefusal();
  void TakeConnection();
  bool FindAccounts();
  bool GetCurrentUser();
  bool GetAdminUser();
  bool GetAdministratorsAndEveryoneGroup();
  void GetCountPerm();

  // The selection and its buttons (frmUserGroupPermSelection.cpp).
  std::wstring KeyOf(int tree, int node) const;
  void ClearSelection();
  void ResetUserButton(std::wstring_view tag);
  void ResetGroupButton(std::wstring_view tag);
  void RefreshSelection(int tree);
  void RefreshSelections(int tree);
  Selection ReadSelection(int tree);

  // The commands on accounts (frmUserGroupPermAccounts.cpp). Each answers whether it came further
  // than the warning that nothing is selected.
  bool EditUser(const Selection& at);
  bool DeleteUser(const Selection& at);
  void NewUser();
  bool EditGroup(const Selection& at);
  bool DeleteGroup(const Selection& at);
  void NewGroup();
  bool WarnUnselected(const Selection& at, int text, int style);
  void ShowEdited(int tree, const Selection& at, const std::wstring& text);
  void DeleteAccount(int tree, const Selection& at, int question,
                     std::wstring (*markDeleted)(std::wstring_view name, std::int32_t id));
  int AccountAbove(int tree, const Selection& at) const;
  void RemoveAccount(int tree, int account);
  void ForgetAccount(int tree, const Selection& at);
  void ShowNew(int tree, const controls::KeyForm& keyForm, std::int32_t id,
               const std::wstring& text);
  void CountNew(int tree);
  void BringInStep(int tree);

  // The commands on links (frmUserGroupPermLinks.cpp).
  void AssignGroups(const Selection& at);
  void AssignUserPermissions(const Selection& at);
  void AssignMembers(const Selection& at);
  void AssignGroupPermissions(const Selection& at);
  void RemoveMembership(const Selection& at);
  void RemoveUserPermission(const Selection& at);
  void RemoveMember(const Selection& at);
  void RemoveGroupPermission(const Selection& at);
  void ShowListItem(const std::wstring& listKind, const std::wstring& relation, std::int32_t owner);
  // Asks, runs the statement, takes the leaf away and runs what is to follow. Does nothing where
  // the selected node is no such link, the answer was not Yes or the statement failed.
  void RemoveLink(const Selection& at, const LinkKind& kind, const std::wstring& statement,
                  const std::function<void()>& after);
  void BringAllPermissionsInStep(const Selection& at);
  void BringPermissionsInStep();
  // Runs one statement; the number of rows it met, -1 when that is not known, nothing when it
  // failed, which has been reported.
  std::optional<std::int32_t> DeleteRecord(data::Connection& connection, const std::wstring& sql);
  void TellChangedMeanwhile();

  // The commands from the trees (frmUserGroupPermMenu.cpp).
  void TreeView1_ContextMenu(int Index, int node);
  void TreeView1_Copy(int Index, int node);
  void TreeKey(int keyCode);
  void Perform(int tree, int node, int command);
  std::wstring OriginOf(int node) const;

  // Brings folders up to date under the wait pointer; a failure shows in the status line.
  void Rebuild(const std::function<int(FolderRebuild& rebuild)>& work);

  void cmdBtn_Click(int Index);
  void cmdAbout_Click();
  void Command1_Click();
  void TreeView1_Expand(int Index, int node, bool expanded);

  int FillTree(int Index);
  void ShowProgress(int done, int total);
  void StartProgress(int text);
  void ShowStatus();

  app::mGlobal& global_;
  TreeCaptions captions_;
  TreeContext context_;
  AccountTree userTree_;
  AccountTree groupTree_;
  FolderRebuild rebuild_;
  int progressText_ = 0;
  bool incomplete_ = false;  // the trees lack what an error kept from being read
  std::chrono::steady_clock::time_point nextProgress_;
};

}  // namespace browser
