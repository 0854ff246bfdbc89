#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/CommandButton.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/TextBox.h"
#include "data/ExitStatus.h"
#include "dialogs/ControlArray.h"
#include "dialogs/EditingDialog.h"
#include "dialogs/ListItems.h"

namespace dialogs {

// Who shows the chooser. For the main window it writes to the database, for a group dialog it fills
// that dialog's list of members.
enum class CallerMode { kMainWindow, kEditDialog, kNewDialog };

// Two lists: the users outside a group and its members. Users are moved from one to the other.
class frmAddUserInGroup : public EditingDialog {
 public:
  explicit frmAddUserInGroup(Exchange& exchange);

  void Form_Load() override;
  void Form_Unload(bool& cancel) override;

  // Set by the caller.
  bool IsRemoveAdmin = true;  // whether the user Admin may be taken out of the group
  std::int32_t adminUserId = 0;
  CallerMode Mode = CallerMode::kMainWindow;
  std::int32_t GroupID = -1;
  std::wstring GroupName;
  controls::ListBox* Members = nullptr;  // the calling dialog's members, where a dialog calls

  ControlArray<controls::Label, 1, 2, 3, 4> lbl1;
  ControlArray<controls::TextBox, 1, 2> txtUserName;
  controls::Frame fraAvailableUser;
  controls::Frame fraSelecteUsers;
  ControlArray<controls::ListBox, 1, 2> List1;  // 1 users outside the group, 2 its members
  ControlArray<controls::CommandButton, 1, 2, 3, 4> cmdBtn;  // > >> < <<
  controls::CommandButton cmdOK;
  controls::CommandButton cmdCancel;
  controls::CommandButton Command1;  // help

 protected:
  app::HelpTopic Topic() const override { return app::kTopicAddUserInGroup; }
  void cmdOK_Click() override;
  void cmdCancel_Click() override;

 private:
  void SettingControls();
  void SetCaptions();
  void SetLayout();
  void SetEvents();

  // Reads both lists; the left one has all users at first, then those who are no members.
  data::ExitStatus Fill();
  data::ExitStatus List1AddItem(std::wstring_view statement, int Index);
  data::ExitStatus UpdateAddItem();
  void LeaveOutMembers();
  void List1_Click();

  // Searching and moving (frmAddUserInGroupMoves.cpp). A move goes from the list of the one number
  // to the other list.
  void txtUserName_Change(int Index);
  void cmdBtn_Click(int Index);
  void AddAllItem();
  void RemoveAllItem();
  void MoveSelected(int from);
  void Move(int from, const std::vector<bool>& chosen);
  bool IsKept(int from, const ListItem& user) const;

  // Writing (frmAddUserInGroupSave.cpp).
  data::ExitStatus WriteMemberships();
  data::ExitStatus NewUserGroups();
  data::ExitStatus DeleteUserGroups();
};

}  // namespace dialogs
