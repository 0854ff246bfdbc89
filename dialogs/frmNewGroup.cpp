#include "dialogs/frmNewGroup.h"

#include "app/StringIds.h"
#include "data/Counters.h"
#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "dialogs/AccountNames.h"
#include "dialogs/StoredGroupName.h"
#include "resources/ResourceIds.h"

namespace dialogs {

frmNewGroup::frmNewGroup(Exchange& exchange) : GroupDialog(exchange, IDD_NEW_GROUP) {}

app::Outcome frmNewGroup::LoadDialog() {
  GroupID = 0;
  SettingControls(app::kNewGroupTitle);
  const app::Outcome filled = FillPermissions();
  EnableRemove();
  return filled;
}

bool frmNewGroup::IsNameReserved(std::wstring_view name) {
  return IsReservedGroupName(RecognisedName(name));
}

app::Outcome frmNewGroup::UpdateTransaction() {
  return Reported(L"UpdateTransaction", [this] {
    if (NewGroup() == app::Outcome::kFailed || NewUserGroups() == app::Outcome::kFailed ||
        NewGroupPermissions() == app::Outcome::kFailed) {
      return app::Outcome::kFailed;
    }
    HandBack();
    return app::Outcome::kDone;
  });
}

// A counter gives each identifier once. Where a group has the new one all the same, its row is left
// alone, and so are its members.
app::Outcome frmNewGroup::NewGroup() {
  return Reported(L"NewGroup", [this] {
    storedName_ = StoredGroupName(Server()).Of(TypedName());
    GroupID = Server().NewIdentifier(data::CounterName(data::Counter::kGroups));
    const auto rows = Connection().OpenResultSet(data::SqlSelectGroup(GroupID));
    if (!rows->EndOfRows()) throw data::RunTimeError(data::kKeyAlreadyUsed);
    rows->AddNew();
    rows->SetColumn(L"GROUPID", GroupID);
    rows->SetColumn(L"NAME", storedName_);
    if (!TypedDescription().empty()) rows->SetColumn(L"DESCR", txtDesc.Text());
    rows->Update();
    rows->Close();
  });
}

app::Outcome frmNewGroup::NewUserGroups() {
  return Reported(L"NewUserGroups", [this] { AddMemberRows(); });
}

app::Outcome frmNewGroup::NewGroupPermissions() {
  return Reported(L"NewGroupPermissions", [this] { AddPermissionRows(); });
}

}  // namespace dialogs
