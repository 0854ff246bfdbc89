#include "dialogs/frmNewUser.h"

#include "data/Counters.h"
#include "data/Lookup.h"
#include "data/MSQLStatement.h"
#include "data/SecretText.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"

namespace dialogs {
namespace {

constexpr std::int32_t kNoIdentifier = -1;

}  // namespace

frmNewUser::frmNewUser(Exchange& exchange) : UserDialog(exchange, IDD_NEW_USER) {}

// Without its groups a user can still be created, without the permissions not.
app::Outcome frmNewUser::FillControls() {
  NewUserID = kNoIdentifier;
  static_cast<void>(FillGroups());
  const std::int32_t everyone = GetEveryOneGroup();
  if (everyone != kNoIdentifier) DefaultGroup(everyone);
  CheckItems(List1[kGroups], GroupIDs);
  const app::Outcome filled = FillPermissions();
  CheckItems(List1[kPermissions], PermissionIDs);
  return filled;
}

std::int32_t frmNewUser::GetEveryOneGroup() {
  return app::ReportedOr(exchange_.global, L"GetEveryOneGroup", kNoIdentifier, [this] {
    return data::ReadIdentifier(Connection(), data::SqlSelectGroupByName(L"Everyone"),
                                kNoIdentifier);
  });
}

// Without that group in the list the user is a member of none.
void frmNewUser::DefaultGroup(std::int32_t groupId) {
  static_cast<void>(Reported(L"DefaultGroup", [&] {
    controls::ListBox& groups = List1[kGroups];
    int item = 0;
    while (item < groups.ListCount() && groups.ItemData(item) != groupId) ++item;
    groups.SetSelected(item, true);
  }));
}

bool frmNewUser::IsAccepted() {
  return IsNameGiven() && IsPasswordLongEnough() && IsNameFree(NewUserID) && IsPasswordConfirmed();
}

// Reports under the name that administrators know from the dialog's load.
app::Outcome frmNewUser::UpdateTransaction() {
  return Reported(L"Form Load", [this] {
    if (NewUser() == app::Outcome::kFailed || NewUserGroups() == app::Outcome::kFailed ||
        NewUserPermissions() == app::Outcome::kFailed) {
      return app::Outcome::kFailed;
    }
    exchange_.UserID = NewUserID;
    HandBack();
    return app::Outcome::kDone;
  });
}

// An identifier that has a row already is taken as it is: the row is not ours to change.
app::Outcome frmNewUser::NewUser() {
  return Reported(L"NewUser", [this] {
    NewUserID = Server().NewIdentifier(data::CounterName(data::Counter::kUsers));
    const auto rows = Connection().OpenResultSet(data::SqlSelectUser(NewUserID));
    if (rows->EndOfRows()) AddUserRow(*rows);
    rows->Close();
  });
}

void frmNewUser::AddUserRow(data::ResultSet& rows) {
  const std::wstring name = txtUserName.Text();
  const std::wstring fullName = txtFullName.Text();
  const data::SecretText password(txtPassword.Text());
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

app::Outcome frmNewUser::NewUserGroups() {
  return Reported(L"NewUserGroups", [this] {
    AddLinks(List1[kGroups], data::SqlSelectUserMemberships(NewUserID), NewUserID);
  });
}

app::Outcome frmNewUser::NewUserPermissions() {
  return Reported(L"NewUserPermissions", [this] {
    AddLinks(List1[kPermissions], data::SqlSelectUserPermRows(NewUserID), NewUserID);
  });
}

}  // namespace dialogs
