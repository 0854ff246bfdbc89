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

// What creating a user and editing one have in common: the controls, the two check lists, the rules
// for typing a password, the checks before saving and the writing of the links.
class UserDialog : public EditingDialog {
 public:
  enum List : int { kGroups = 1, kPermissions = 2 };
  // Check all or uncheck all, then the list.
  enum Button : int { kAllGroups = 11, kAllPermissions = 12, kNoGroup = 21, kNoPermission = 22 };

  // The group that no user leaves; 0 protects none.
  std::int32_t EveryoneGroupID = 0;

  controls::Label lblUserName;
  controls::TextBox txtUserName;
  controls::Label lblFullName;
  controls::TextBox txtFullName;
  controls::Label lblPassword;
  controls::TextBox txtPassword;
  controls::Label lblConfirmPassword;
  controls::TextBox txtVerify;
  controls::Frame fraMemberOf;
  controls::Frame fraUserPermissions;
  ControlArray<controls::ListBox, kGroups, kPermissions> List1;
  ControlArray<controls::CommandButton, kAllGroups, kAllPermissions, kNoGroup, kNoPermission>
      cmdBtn;
  controls::CommandButton cmdOK;
  controls::CommandButton cmdCancel;
  controls::CommandButton Command1;  // help

 protected:
  UserDialog(Exchange& exchange, int templateId);

  app::Outcome LoadDialog() override;
  // Fills the controls, while checks set off nothing.
  virtual app::Outcome FillControls() = 0;
  virtual int TitleId() const = 0;

  // --- The check lists (UserDialog.cpp). Failures are reported there. ---
  app::Outcome FillGroups();
  app::Outcome FillPermissions();
  // Sees each group that is listed, with its stored name.
  virtual void KeepName(std::int32_t groupId, const std::wstring& name);
  virtual bool IsProtectedGroup(std::int32_t groupId) const;
  // The stored names of what unchecking all groups leaves checked, as the message quotes them.
  virtual std::wstring ProtectedNames() const { return strEveryoneName; }

  // --- The checks (UserDialogChecks.cpp). Each tells the user what is wrong, and where. ---
  bool IsNameGiven();
  bool IsPasswordLongEnough();
  bool IsPasswordConfirmed();
  bool IsNameFree(std::int32_t userId);
  bool CheckPasswordLenth(std::int16_t IntLen);
  // All of them, in the order of the mode.
  virtual bool IsAccepted() = 0;
  // The part of a text that the mode counts.
  virtual std::wstring_view Counted(std::wstring_view text) const = 0;

  // --- The save (UserDialog.cpp) ---
  void cmdOK_Click() override;
  // Whether what is checked may be saved; asked when all else has been accepted.
  virtual bool MaySave() const { return true; }
  virtual app::Outcome UpdateTransaction() = 0;
  // Adds a row (userId, item data) for every checked item to the set that the statement opens.
  void AddLinks(const controls::ListBox& list, std::wstring_view statement, std::int32_t userId);
  // Tells the main window which name was written.
  void HandBack();

  std::wstring strEveryoneName;

 private:
  void SettingControls();
  void SetLayout();
  void SetEvents();

  void cmdBtn_Click(int Index);
  void RemoveAllGroups();
  void List1_Click(int Index);
  void List1_ItemCheck(int Index, int Item);

  void SetPasswordEvents();
  void txtPassword_Change();
  void txtVerify_Change();
  void CutPassword(controls::TextBox& box);
  void ReturnToPassword();
  void ReturnToName();

  bool bLoading = false;
  bool bNoMessage = false;
  // While the program checks again what may not be unchecked.
  bool bRechecking = false;
};

}  // namespace dialogs
