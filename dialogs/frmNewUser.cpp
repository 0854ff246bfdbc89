#include "dialogs/frmNewUser.h"

#include "app/ErrorReport.h"
#include "app/StringIds.h"
#include "data/Lookup.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"

namespace dialogs {
namespace {

constexpr std::int32_t kNoIdentifier = -1;

}  // namespace

frmNewUser::frmNewUser(Exchange& exchange) : UserDialog(exchange, IDD_NEW_USER) {}

// Without its groups a user can still be created, without the permissions not. What could not be
// loaded at all closes the dialog, so that nothing is saved from the middle of a load.
void frmNewUser::Form_Load() {
  try {
    StartLoading(app::kNewUserTitle);
    NewUserID = kNoIdentifier;
    List1AddItem(data::SqlSelectAllGroups(), 1);
    const std::int32_t everyone = GetEveryOneGroup();
    if (everyone != kNoIdentifier) DefaultGroup(everyone);
    if (List1AddItem(data::SqlSelectAllPermissions(), 2) == data::kFailed) {
      Close();
      return;
    }
    FinishLoading();
  } catch (...) {
    app::ReportError(exchange_.global, L"Form Load");
    Close();
  }
}

std::int32_t frmNewUser::GetEveryOneGroup() {
  try {
    return data::ReadIdentifier(Connection(), data::SqlSelectGroupByName(L"Everyone"),
                                kNoIdentifier);
  } catch (...) {
    app::ReportError(exchange_.global, L"GetEveryOneGroup");
    return kNoIdentifier;
  }
}

// Answers that it failed in any case; nobody asks.
data::ExitStatus frmNewUser::DefaultGroup(std::int32_t groupId) {
  try {
    controls::ListBox& groups = List1[1];
    int item = 0;
    while (item < groups.ListCount() && groups.ItemData(item) != groupId) ++item;
    groups.SetSelected(item, true);
  } catch (...) {
    app::ReportError(exchange_.global, L"DefaultGroup");
  }
  return data::kFailed;
}

bool frmNewUser::IsAccepted() {
  return IsNameGiven() && IsPasswordLongEnough() && IsNameFree(NewUserID) && IsPasswordConfirmed();
}

// Reports under the name that administrators know from the dialog's load.
data::ExitStatus frmNewUser::UpdateTransaction() {
  try {
    const bool written =
        NewUser() && NewUserGroups() == data::kDone && NewUserPermissions() == data::kDone;
    if (written) exchange_.UserID = NewUserID;
    HandBack(written);
    return written ? data::kDone : data::kFailed;
  } catch (...) {
    exchange_.AddNode = false;
    app::ReportError(exchange_.global, L"Form Load");
    return data::kFailed;
  }
}

// An identifier that has a row already is taken as it is: the row is not ours to change.
bool frmNewUser::NewUser() {
  try {
    NewUserID = Server().NewIdentifier(L"QRUSRN");
    const auto rows = Connection().OpenResultSet(data::SqlSelectUser(NewUserID));
    if (rows->EndOfRows()) AddUserRow(*rows);
    rows->Close();
    return true;
  } catch (...) {
    app::ReportError(exchange_.global, L"NewUser");
    return false;
  }
}

void frmNewUser::AddUserRow(data::ResultSet& rows) {
  const std::wstring name = txtUserName.Text();
  const std::wstring fullName = txtFullName.Text();
  const std::wstring password = txtPassword.Text();
  rows.AddNew();
  rows.SetColumn(L"USERID", NewUserID);
  rows.SetColumn(L"NAME", std::wstring(data::Trim(name)));
  if (!data::Trim(fullName).empty()) {
    rows.SetColumn(L"FULLNAME", std::wstring(data::Trim(fullName)));
  }
  if (!data::Trim(password).empty()) {
    rows.SetColumn(L"PASSWORD", Server().EncryptPassword(password, NewUserID));
  }
  rows.Update();
}

data::ExitStatus frmNewUser::NewUserGroups() {
  try {
    AddLinks(1, data::SqlSelectUserMemberships(NewUserID), NewUserID);
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"NewUserGroups");
    return data::kFailed;
  }
}

data::ExitStatus frmNewUser::NewUserPermissions() {
  try {
    AddLinks(2, data::SqlSelectUserPermRows(NewUserID), NewUserID);
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"NewUserPermissions");
    return data::kFailed;
  }
}

}  // namespace dialogs
