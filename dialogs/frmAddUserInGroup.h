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
#include "dialogs/ControlArray.h"
#include "dialogs/EditingDialog.h"

namespace dialogs {

// Two lists: the users outside a group and its members. Users are moved from one to the other.
class frmAddUserInGroup : public EditingDialog {
 public:
  // The lists, and the search boxes over them.
  enum List : int { kOthers = 1, kMembers = 2 };
  enum Button : int { kAdd = 1, kAddAll = 2, kRemove = 3, kRemoveAll = 4 };

  explicit frmAddUserInGroup(Exchange& exchange);

  void Form_Unload(bool& cancel) override;

  // Set by the caller.
  bool IsRemoveAdmin = true;  // whether the user Admin may be taken out of the group
  std::int32_t adminUserId = 0;
  std::int32_t GroupID = -1;
  std::wstring GroupName;
  // The list that holds the members and is given the chosen ones on OK: that of a group dialog,
  // which saves them later. Null for the main window: then the database holds them.
  controls::ListBox* Members = nullptr;

  ControlArray<controls::Label, 1, 2, 3, 4> lbl1;
  ControlArray<controls::TextBox, kOthers, kMembers> txtUserName;
  controls::Frame fraAvailableUser;
  controls::Frame fraSelecteUsers;
  ControlArray<controls::ListBox, kOthers, kMembers> List1;
  ControlArray<controls::CommandButton, kAdd, kAddAll, kRemove, kRemoveAll> cmdBtn;
  controls::CommandButton cmdOK;
  controls::CommandButton cmdCancel;
  controls::CommandButton Command1;  // help

 protected:
  app::Outcome LoadDialog() override;
  app::HelpTopic Topic() const override { return app::kTopicAddUserInGroup; }
  void cmdOK_Click() override;
  void cmdCancel_Click() override;

 private:
  void SettingControls();
  void SetCaptions();
  void SetLayout();
  void SetEvents();

  // Reads both lists; the left one has all users at first, then those who are no members.
  app::Outcome FillLists();
  app::Outcome UpdateAddItem();
  void LeaveOutMembers();
  void List1_Click();

  // Writing.
  bool MaySave() const;
  app::Outcome WriteMemberships();
  app::Outcome NewUserGroups();
  app::Outcome DeleteUserGroups();

  // --- Searching and moving (frmAddUserInGroupMoves.cpp) ---

  // What becomes of the users of a list of which some are to be moved.
  struct Parting {
    std::vector<ListItem> moved;
    std::vector<ListItem> left;
    int firstMoved = -1;  // where the first that is moved stood
    int refused = -1;     // the last of those left that was to be moved and may not be
  };

  static List OtherList(List list) { return list == kOthers ? kMembers : kOthers; }
  static Button MoveButton(List from) { return from == kOthers ? kAdd : kRemove; }

  void ChooseDefaultButton();
  void txtUserName_Change(List index);
  void cmdBtn_Click(int Index);
  void MoveAll(const wchar_t* procedure, List from);
  void MoveSelected(List from);
  void Move(List from, const std::vector<bool>& chosen);
  Parting Part(List from, const std::vector<bool>& chosen) const;
  static void TakeOut(controls::ListBox& list, const Parting& users);
  bool IsKept(List from, const ListItem& user) const;
};

}  // namespace dialogs
