#include "dialogs/frmEditUser.h"

#include "app/ErrorReport.h"
#include "app/StringIds.h"
#include "data/MSQLStatement.h"
#include "data/Pattern.h"
#include "data/ProtectedId.h"
#include "data/RunTimeError.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"

namespace dialogs {

frmEditUser::frmEditUser(Exchange& exchange) : UserDialog(exchange, IDD_EDIT_USER) {}

// A user that is not loaded whole must not be saved: whatever fails closes the dialog.
void frmEditUser::Form_Load() {
  try {
    ForgetUser();
    StartLoading(app::kEditUserTitle);
    exchange_.accountGone = !ReadUser();
    if (exchange_.accountGone || Fill() == data::kFailed) {
      exchange_.AddNode = false;
      Close();
      return;
    }
    if (strUserName == L"Admin") {
      txtUserName.SetEnabled(false);
      txtFullName.SetEnabled(false);
    }
    FinishLoading();
  } catch (...) {
    app::ReportError(exchange_.global, L"Form Load");
    Close();
  }
}

// The set stays open for the save. It is read to its end now: one that rests on a row would keep
// others from writing as long as the dialog is open.
bool frmEditUser::ReadUser() {
  rows_ = Connection().OpenResultSet(data::SqlSelectUser(UserID));
  const bool found = !rows_->EndOfRows();
  for (; !rows_->EndOfRows(); rows_->MoveNext()) {
    const std::wstring name = rows_->Column(1).Text();
    strUserName = data::Trim(name);
    txtUserName.SetText(strUserName);
    if (!rows_->Column(2).IsNullOrEmpty()) {
      const std::wstring fullName = rows_->Column(2).Text();
      txtFullName.SetText(std::wstring(data::Trim(fullName)));
    }
    if (!rows_->Column(3).IsNullOrEmpty()) {
      const std::wstring stored = rows_->Column(3).Text();
      strPassword = Server().DecryptPassword(data::Trim(stored), UserID);
      txtPassword.SetText(strPassword);
      txtVerify.SetText(strPassword);
    }
  }
  return found;
}

data::ExitStatus frmEditUser::Fill() {
  if (List1AddItem(data::SqlSelectAllGroups(), 1) == data::kFailed) return data::kFailed;
  if (SelectListItem(UserID, 1) == data::kFailed) return data::kFailed;
  if (List1AddItem(data::SqlSelectAllPermissions(), 2) == data::kFailed) return data::kFailed;
  return SelectListItem(UserID, 2);
}

data::ExitStatus frmEditUser::SelectListItem(std::int32_t userId, int Index) {
  try {
    controls::ListBox& list = List1[Index];
    const controls::ListBox::Update update(list);
    for (int i = 0; i < list.ListCount(); ++i) {
      const std::int32_t id = list.ItemData(i);
      const auto rows =
          Connection().OpenResultSet(Index == 1 ? data::SqlSelectMembership(id, userId)
                                                : data::SqlSelectUserPermission(userId, id));
      for (; !rows->EndOfRows(); rows->MoveNext()) {
        if (rows->Column(1).Integer() == id) list.SetSelected(i, true);
      }
      rows->Close();
    }
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"SelectListItem");
    return data::kFailed;
  }
}

void frmEditUser::Form_Unload(bool& cancel) {
  UserDialog::Form_Unload(cancel);
  if (!cancel) ForgetUser();
}

// The password is overwritten, not merely given back to the heap.
void frmEditUser::ForgetUser() {
  rows_.reset();
  strUserName.clear();
  strAdminName.clear();
  for (volatile wchar_t& character : strPassword) character = 0;
  strPassword.clear();
}

void frmEditUser::KeepName(std::int32_t groupId, const std::wstring& name) {
  UserDialog::KeepName(groupId, name);
  if (data::IsProtectedId(AdminGroupID, groupId)) strAdminName = name;
}

bool frmEditUser::IsProtectedGroup(std::int32_t groupId) const {
  if (UserDialog::IsProtectedGroup(groupId)) return true;
  return !IsRemoveAdministrator && data::IsProtectedId(AdminGroupID, groupId);
}

// Two names stand in quotes each; the message brings the outer two.
std::wstring frmEditUser::ProtectedNames() const {
  if (IsRemoveAdministrator) return strEveryoneName;
  return strAdminName + L"'/ '" + strEveryoneName;
}

std::wstring_view frmEditUser::Counted(std::wstring_view text) const {
  return data::Trim(text);
}

bool frmEditUser::IsAccepted() {
  return IsNameGiven() && IsPasswordLongEnough() && (IsPasswordKept() || IsPasswordConfirmed()) &&
         IsNameFree(UserID);
}

// Both boxes are taken as patterns for the password as loaded, so that it is not compared when it
// was not touched.
bool frmEditUser::IsPasswordKept() const {
  const std::wstring typed = txtPassword.Text();
  const std::wstring verified = txtVerify.Text();
  return data::Like(strPassword, data::Trim(typed)) &&
         data::Like(strPassword, data::Trim(verified));
}

data::ExitStatus frmEditUser::UpdateTransaction() {
  try {
    HandBack(EditUser() && EditUserGroups() == data::kDone && EditUserPermissions() == data::kDone);
  } catch (...) {
    exchange_.AddNode = false;
    app::ReportError(exchange_.global, L"UpdateTransaction");
  }
  return data::kDone;
}

bool frmEditUser::EditUser() {
  try {
    exchange_.accountGone = false;
    const bool changed = ChangeRow();
    rows_->Close();
    rows_.reset();
    exchange_.accountGone = !changed;
    return changed;
  } catch (const data::RunTimeError& error) {
    exchange_.accountGone = error.Number() == data::kRowGone;
    app::ReportError(exchange_.global, L"EditUser");
  } catch (...) {
    app::ReportError(exchange_.global, L"EditUser");
  }
  return false;
}

// False when the user has no row any more.
bool frmEditUser::ChangeRow() {
  bool changed = false;
  for (rows_->MoveFirst(); !rows_->EndOfRows(); rows_->MoveNext()) {
    if (rows_->Column(0).Integer() != UserID) continue;
    const std::wstring name = txtUserName.Text();
    const std::wstring fullName = txtFullName.Text();
    const std::wstring password = txtPassword.Text();
    data::FieldValue newFullName;
    data::FieldValue newPassword;
    if (!data::Trim(fullName).empty()) newFullName = fullName;
    rows_->Edit();
    if (!data::Trim(password).empty()) newPassword = Server().EncryptPassword(password, UserID);
    rows_->SetColumn(L"NAME", std::wstring(data::Trim(name)));
    rows_->SetColumn(L"FULLNAME", newFullName);
    rows_->SetColumn(L"PASSWORD", newPassword);
    rows_->Update();
    changed = true;
  }
  return changed;
}

data::ExitStatus frmEditUser::EditUserGroups() {
  try {
    Connection().Execute(data::SqlDeleteUserMemberships(UserID));
    AddLinks(1, data::SqlSelectUserMemberships(UserID), UserID);
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"EditUserGroups");
    return data::kFailed;
  }
}

data::ExitStatus frmEditUser::EditUserPermissions() {
  try {
    Connection().Execute(data::SqlDeleteUserPermissions(UserID));
    AddLinks(2, data::SqlSelectUserPermRows(UserID), UserID);
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"EditUserPermissions");
    return data::kFailed;
  }
}

}  // namespace dialogs
