#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controls/CommandButton.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/TextBox.h"
#include "data/ExitStatus.h"
#include "data/SessionServer.h"
#include "dialogs/ControlArray.h"
#include "dialogs/EditingDialog.h"

namespace dialogs {

// What creating a user and editing one have in common: the controls, the two check lists, the rules
// for typing a password, the checks before saving and the writing of the links.
class UserDialog : public EditingDialog {
 public:
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
  ControlArray<controls::ListBox, 1, 2> List1;  // 1 groups, 2 permissions
  // Check all or uncheck all, then the list: 11, 12 and 21, 22.
  ControlArray<controls::CommandButton, 11, 12, 21, 22> cmdBtn;
  controls::CommandButton cmdOK;
  controls::CommandButton cmdCancel;
  controls::CommandButton Command1;  // help

 protected:
  UserDialog(Exchange& exchange, int templateId);

  // The load's beginning, with the window's caption, and its end.
  void StartLoading(int titleId);
  void FinishLoading();

  // --- The check lists (UserDialogLists.cpp). Failures are reported there. ---
  data::ExitStatus List1AddItem(std::wstring_view statement, int Index);
  void SelectAllRecord(int Index);
  void RemoveAllRecord(int Index);
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

  // --- The save (UserDialogSave.cpp) ---
  void cmdOK_Click() override;
  virtual data::ExitStatus UpdateTransaction() = 0;
  // Adds a row (userId, item data) for every checked item to the set that the statement opens.
  void AddLinks(int Index, std::wstring_view statement, std::int32_t userId);
  // Tells the main window how the save ended.
  void HandBack(bool written);

  data::Connection& Connection() const { return *exchange_.global.databaseConnection; }
  data::SessionServer& Server() const { return *exchange_.global.SessionServer; }

  std::wstring strEveryoneName;

 private:
  // The layout (UserDialog.cpp).
  void SettingControls(int titleId);
  void SetLayout();
  void SetEvents();

  void cmdBtn_Click(int Index);
  void RemoveAllGroups();
  void List1_Click(int Index);
  void List1_ItemCheck(int Index, int Item);

  void SetPasswordEvents();
  void txtPassword_Change();
  void txtVerify_Change();
  void CutPassword(controls::TextBox& box, int tabIndex);
  void ReturnToPassword();
  void ReturnToName();

  bool bLoading = false;
  bool bNoMessage = false;
  // While the program checks again what may not be unchecked.
  bool bRechecking = false;
};

}  // namespace dialogs
