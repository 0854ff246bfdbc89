// What the group dialog writes, and what it hands back to the main window.

#include "data/MSQLStatement.h"
#include "dialogs/GroupDialog.h"

namespace dialogs {

void GroupDialog::AddMemberRows() {
  const auto rows = Connection().OpenResultSet(data::SqlSelectGroupMemberships(GroupID));
  const controls::ListBox& members = List1[1];
  for (int i = 0; i < members.ListCount(); ++i) {
    rows->AddNew();
    rows->SetColumn(L"GROUPID", GroupID);
    rows->SetColumn(L"USERID", members.ItemData(i));
    rows->Update();
  }
  rows->Close();
}

void GroupDialog::AddPermissionRows() {
  const auto rows = Connection().OpenResultSet(data::SqlSelectGroupPermRows(GroupID));
  const controls::ListBox& permissions = List1[2];
  for (int i = 0; i < permissions.ListCount(); ++i) {
    if (!permissions.Selected(i)) continue;
    rows->AddNew();
    rows->SetColumn(L"GROUPID", GroupID);
    rows->SetColumn(L"PERMID", permissions.ItemData(i));
    rows->Update();
  }
  rows->Close();
}

void GroupDialog::HandBack() {
  const std::wstring description = TypedDescription();
  exchange_.GroupID = GroupID;
  exchange_.GroupName = TypedName();
  if (!description.empty()) exchange_.GroupName += L" (" + description + L")";
  exchange_.StoredName = storedName_;
  exchange_.AddNode = true;
}

}  // namespace dialogs
