#include "dialogs/frmEditUser.h"

#include "data/MSQLStatement.h"
#include "data/Pattern.h"
#include "data/ProtectedId.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"

namespace dialogs {

frmEditUser::frmEditUser(Exchange& exchange) : UserDialog(exchange, IDD_EDIT_USER) {}

// A user that is not loaded whole must not be saved: whatever fails closes the dialog.
app::Outcome frmEditUser::FillControls() {
  ForgetUser();
  exchange_.accountGone = !ReadUser();
  if (exchange_.accountGone || FillLists() == app::Outcome::kFailed) return app::Outcome::kFailed;
  if (strUserName == L"Admin") {
    txtUserName.SetEnabled(false);
    txtFullName.SetEnabled(false);
  }
  return app::Outcome::kDone;
}

// The set stays open for the save. It is read to its end now: one that rests on a row would keep
// others from writing as long as the dialog is open.
bool frmEditUser::ReadUser() {
  rows_ = Connection().OpenResultSet(data::SqlSelectUser(UserID));
  const bool found = !rows_->EndOfRows();
  std::wstring password;
  for (; !rows_->EndOfRows(); rows_->MoveNext()) {
    const std::wstring name = rows_->Column(1).Text();
    strUserName = data::Trim(name);
    txtUserName.SetText(strUserName);
    if (!rows_->Column(2).IsNullOrEmpty()) {
      const std::wstring fullName = rows_->Column(2).Text();
      txtFullName.SetText(std::wstring(data::Trim(fullName)));
    }
    if (!rows_->Column(3).IsNullOrEmpty()) password = rows_->Column(3).Text();
  }
  if (!password.empty()) ReadPassword(data::Trim(password));
  return found;
}

// A password that cannot be read is reported and its boxes stay empty. The account can be edited
// all the same: no password passes the checks before a new one is typed.
void frmEditUser::ReadPassword(std::wstring_view stored) {
  const app::Outcome read = Reported(L"Form Load", [&] {
    strPassword = data::SecretText(Server().DecryptPassword(stored, UserID));
  });
  isPasswordKnown_ = read == app::Outcome::kDone;
  txtPassword.SetText(strPassword.Text());
  txtVerify.SetText(strPassword.Text());
}

app::Outcome frmEditUser::FillLists() {
  if (FillGroups() == app::Outcome::kFailed ||
      SelectListItem(UserID, kGroups) == app::Outcome::kFailed ||
      FillPermissions() == app::Outcome::kFailed) {
    return app::Outcome::kFailed;
  }
  return SelectListItem(UserID, kPermissions);
}

app::Outcome frmEditUser::SelectListItem(std::int32_t userId, List index) {
  return Reported(L"SelectListItem", [&] {
    controls::ListBox& list = List1[index];
    const controls::ListBox::Update update(list);
    for (int i = 0; i < list.ListCount(); ++i) {
      const std::int32_t id = list.ItemData(i);
      const auto rows =
          Connection().OpenResultSet(index == kGroups ? data::SqlSelectMembership(id, userId)
                                                      : data::SqlSelectUserPermission(userId, id));
      for (; !rows->EndOfRows(); rows->MoveNext()) {
        if (rows->Column(1).Integer() == id) list.SetSelected(i, true);
      }
      rows->Close();
    }
  });
}

void frmEditUser::Form_Unload(bool& cancel) {
  UserDialog::Form_Unload(cancel);
  if (!cancel) ForgetUser();
}

void frmEditUser::ForgetUser() {
  rows_.reset();
  strUserName.clear();
  strAdminName.clear();
  strPassword = {};
  isPasswordKnown_ = true;
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
  const data::SecretText typed(txtPassword.Text());
  const data::SecretText verified(txtVerify.Text());
  return isPasswordKnown_ && data::Like(strPassword, data::Trim(typed)) &&
         data::Like(strPassword, data::Trim(verified));
}

bool frmEditUser::MaySave() const {
  return !exchange_.MaySaveUser || exchange_.MaySaveUser(UserID, SelectedData(List1[kGroups]),
                                                         SelectedData(List1[kPermissions]));
}

app::Outcome frmEditUser::UpdateTransaction() {
  return Reported(L"UpdateTransaction", [this] {
    if (EditUser() == app::Outcome::kFailed || EditUserGroups() == app::Outcome::kFailed ||
        EditUserPermissions() == app::Outcome::kFailed) {
      return app::Outcome::kFailed;
    }
    HandBack();
    return app::Outcome::kDone;
  });
}

app::Outcome frmEditUser::EditUser() {
  return WriteRow(L"EditUser", [this] {
    const bool changed = ChangeRow();
    rows_->Close();
    rows_.reset();
    return changed;
  });
}

// False when the user has no row any more.
bool frmEditUser::ChangeRow() {
  bool changed = false;
  for (rows_->MoveFirst(); !rows_->EndOfRows(); rows_->MoveNext()) {
    if (rows_->Column(0).Integer() != UserID) continue;
    const std::wstring name = txtUserName.Text();
    const std::wstring fullName = txtFullName.Text();
    const data::SecretText password(txtPassword.Text());
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

app::Outcome frmEditUser::EditUserGroups() {
  return Reported(L"EditUserGroups", [this] {
    Connection().Execute(data::SqlDeleteUserMemberships(UserID));
    AddLinks(List1[kGroups], data::SqlSelectUserMemberships(UserID), UserID);
  });
}

app::Outcome frmEditUser::EditUserPermissions() {
  return Reported(L"EditUserPermissions", [this] {
    Connection().Execute(data::SqlDeleteUserPermissions(UserID));
    AddLinks(List1[kPermissions], data::SqlSelectUserPermRows(UserID), UserID);
  });
}

}  // namespace dialogs
