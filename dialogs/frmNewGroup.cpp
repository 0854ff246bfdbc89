#include "dialogs/frmNewGroup.h"

#include "app/ErrorReport.h"
#include "app/StringIds.h"
#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "data/Text.h"
#include "dialogs/AccountNames.h"
#include "dialogs/StoredGroupName.h"
#include "resources/ResourceIds.h"

namespace dialogs {

frmNewGroup::frmNewGroup(Exchange& exchange)
    : GroupDialog(exchange, IDD_NEW_GROUP, CallerMode::kNewDialog) {}

void frmNewGroup::Form_Load() {
  try {
    GroupID = 0;
    SettingControls(app::kNewGroupTitle);
    if (List1AddItem(data::SqlSelectAllPermissions(), 2) == data::kFailed) {
      exchange_.AddNode = false;
      Close();
      return;
    }
    EnableRemove();
    bChanged = false;
  } catch (...) {
    app::ReportError(exchange_.global, L"Form Load");
    exchange_.AddNode = false;
    Close();
  }
}

bool frmNewGroup::IsNameReserved(std::wstring_view name) {
  return IsReservedGroupName(RecognisedName(name));
}

data::ExitStatus frmNewGroup::UpdateTransaction() {
  try {
    exchange_.AddNode = false;
    if (NewGroup() && NewUserGroups() == data::kDone && NewGroupPermissions() == data::kDone)
      HandBack();
  } catch (...) {
    app::ReportError(exchange_.global, L"UpdateTransaction");
  }
  return data::kDone;
}

// A counter gives each identifier once. Where a group has the new one all the same, its row is left
// alone, and so are its members.
bool frmNewGroup::NewGroup() {
  try {
    storedName_ = StoredGroupName(Server()).Of(TypedName());
    GroupID = Server().NewIdentifier(L"QRGPRN");
    const auto rows = Connection().OpenResultSet(data::SqlSelectGroup(GroupID));
    if (!rows->EndOfRows()) throw data::RunTimeError(data::kKeyAlreadyUsed);
    rows->AddNew();
    rows->SetColumn(L"GROUPID", GroupID);
    rows->SetColumn(L"NAME", storedName_);
    if (!TypedDescription().empty()) rows->SetColumn(L"DESCR", txtDesc.Text());
    rows->Update();
    rows->Close();
    return true;
  } catch (...) {
    app::ReportError(exchange_.global, L"NewGroup");
    return false;
  }
}

data::ExitStatus frmNewGroup::NewUserGroups() {
  try {
    AddMemberRows();
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"NewUserGroups");
    return data::kFailed;
  }
}

data::ExitStatus frmNewGroup::NewGroupPermissions() {
  try {
    AddPermissionRows();
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"NewGroupPermissions");
    return data::kFailed;
  }
}

}  // namespace dialogs
