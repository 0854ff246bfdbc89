#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controls/CommandButton.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/TextBox.h"
#include "dialogs/ControlArray.h"
#include "dialogs/EditingDialog.h"

namespace dialogs {

// What creating a group and editing one have in common: the controls, the lists, the checks of the
// name and the writing of the links.
class GroupDialog : public EditingDialog {
 public:
  enum List : int { kMembers = 1, kPermissions = 2 };
  enum Button : int { kAssign = 11, kAllPermissions = 12, kRemove = 21, kNoPermission = 22 };

  // The group being edited; a new one gets its identifier when it is saved.
  std::int32_t GroupID = 0;
  // Whether the user Admin may be taken out of the group.
  bool IsRemoveAdmin = true;

  controls::Label lblGroupName;
  controls::TextBox txtGroupName;
  controls::Label lblDesc;
  controls::TextBox txtDesc;
  controls::Frame fraMembers;
  controls::Frame fraGroupPermission;
  ControlArray<controls::ListBox, kMembers, kPermissions> List1;
  ControlArray<controls::CommandButton, kAssign, kAllPermissions, kRemove, kNoPermission> cmdBtn;
  controls::CommandButton cmdOK;
  controls::CommandButton cmdCancel;
  controls::CommandButton Command1;  // help

 protected:
  GroupDialog(Exchange& exchange, int templateId);

  // Captions, anchors and events. titleId is the string of the caption.
  void SettingControls(int titleId);

  // --- The lists ---
  app::Outcome FillMembers();
  app::Outcome FillPermissions();
  void EnableRemove();

  // --- The name ---
  // Whether the name may not be given to this group for being reserved.
  virtual bool IsNameReserved(std::wstring_view name) = 0;
  // The protected name that a shown or typed name stands for, else the name mapped.
  std::wstring RecognisedName(std::wstring_view name);
  std::wstring TypedName() const;
  std::wstring TypedDescription() const;

  // --- The save. The steps report their errors themselves. ---
  void cmdOK_Click() override;
  // Whether the members and permissions may be saved; asked when the name has been accepted.
  virtual bool MaySave() const { return true; }
  virtual app::Outcome UpdateTransaction() = 0;
  void AddMemberRows();
  void AddPermissionRows();
  // Tells the main window which group was written.
  void HandBack();

  // The member named Admin; 0 while there is none.
  std::int32_t adminUserId_ = 0;
  // The name that a save has written.
  std::wstring storedName_;
  // Set for a group whose members cannot be taken out here.
  bool keepsMembers_ = false;

 private:
  void SetCaptions(int titleId);
  void SetLayout();
  void SetEvents();
  void cmdBtn_Click(int Index);
  void AssignMembers();
  void RemoveMember();
  bool IsNameAccepted();
  void ReturnToName();
};

}  // namespace dialogs
