// What the chooser does with its members when it is closed.

#include "app/ErrorReport.h"
#include "data/MSQLStatement.h"
#include "dialogs/frmAddUserInGroup.h"

namespace dialogs {

void frmAddUserInGroup::cmdOK_Click() {
  if (Mode == CallerMode::kMainWindow) {
    exchange_.AddNode = false;
    exchange_.AddNode = WriteMemberships() == data::kDone;
  } else {
    SetItems(*Members, Items(List1[2]));
  }
  Close();
}

void frmAddUserInGroup::cmdCancel_Click() {
  if (Mode == CallerMode::kMainWindow) {
    EditingDialog::cmdCancel_Click();
  } else {
    Close();
  }
}

// Memberships are only added, one for each member who has none, unless nobody is left: then all of
// them go. Who was moved out while others stayed keeps his.
data::ExitStatus frmAddUserInGroup::WriteMemberships() {
  if (NewUserGroups() == data::kFailed) return data::kFailed;
  return List1[2].ListCount() == 0 ? DeleteUserGroups() : data::kDone;
}

data::ExitStatus frmAddUserInGroup::NewUserGroups() {
  try {
    for (const ListItem& user : Items(List1[2])) {
      const auto rows = exchange_.global.databaseConnection->OpenResultSet(
          data::SqlSelectMembership(GroupID, user.itemData));
      if (rows->EndOfRows()) {
        rows->AddNew();
        rows->SetColumn(L"GROUPID", GroupID);
        rows->SetColumn(L"USERID", user.itemData);
        rows->Update();
      }
      rows->Close();
    }
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"NewUserGroups");
    return data::kFailed;
  }
}

data::ExitStatus frmAddUserInGroup::DeleteUserGroups() {
  try {
    exchange_.global.databaseConnection->Execute(data::SqlDeleteAllGroupUsers(GroupID));
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"DeleteUserGroups");
    return data::kFailed;
  }
}

}  // namespace dialogs
