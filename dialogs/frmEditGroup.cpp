#include "dialogs/frmEditGroup.h"

#include "app/ErrorReport.h"
#include "app/StringIds.h"
#include "data/DisplayCodes.h"
#include "data/MSQLStatement.h"
#include "data/RunTimeError.h"
#include "data/Text.h"
#include "dialogs/AccountNames.h"
#include "dialogs/StoredGroupName.h"
#include "resources/ResourceIds.h"

namespace dialogs {

frmEditGroup::frmEditGroup(Exchange& exchange)
    : GroupDialog(exchange, IDD_EDIT_GROUP, CallerMode::kEditDialog) {
  GroupID = -1;
}

void frmEditGroup::Form_Load() {
  try {
    IsRemoveAdmin = true;
    adminUserId_ = 0;
    keepsMembers_ = false;
    SettingControls(app::kEditGroupTitle);
    exchange_.accountGone = !ReadGroup();
    if (exchange_.accountGone || Fill() == data::kFailed) {
      exchange_.AddNode = false;
      Close();
      return;
    }
    EnableRemove();
    ProtectGroup();
    bChanged = false;
  } catch (...) {
    app::ReportError(exchange_.global, L"Form Load");
    exchange_.AddNode = false;
    Close();
  }
}

// The rows are read to their end: a set that rests on a row would keep others from writing for as
// long as the dialog is open.
bool frmEditGroup::ReadGroup() {
  group_ = Connection().OpenResultSet(data::SqlSelectGroup(GroupID));
  const bool found = !group_->EndOfRows();
  for (; !group_->EndOfRows(); group_->MoveNext()) {
    const std::wstring name = group_->Column(1).Text();
    txtGroupName.SetText(Server().GetDisplayName(data::Trim(name), data::kGroupName));
    if (group_->Column(2).IsNullOrEmpty()) continue;
    const std::wstring description = group_->Column(2).Text();
    txtDesc.SetText(Server().GetDisplayName(data::Trim(description), data::kGroupDescription));
  }
  return found;
}

data::ExitStatus frmEditGroup::Fill() {
  if (List1AddItem(data::SqlSelectGroupUsers(GroupID), 1) == data::kFailed) return data::kFailed;
  if (List1AddItem(data::SqlSelectAllPermissions(), 2) == data::kFailed) return data::kFailed;
  return SelectListItem(GroupID, 2);
}

data::ExitStatus frmEditGroup::SelectListItem(std::int32_t groupId, int Index) {
  try {
    const controls::ListBox::Update update(List1[Index]);
    for (int i = 0; i < List1[Index].ListCount(); ++i) {
      const auto rows = Connection().OpenResultSet(
          data::SqlSelectGroupPermission(groupId, List1[Index].ItemData(i)));
      if (!rows->EndOfRows()) List1[Index].SetSelected(i, true);
      rows->Close();
    }
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"SelectListItem");
    return data::kFailed;
  }
}

// Nobody leaves Everyone, and nobody, Admin least of all, is taken out of Administrators here.
void frmEditGroup::ProtectGroup() {
  const std::wstring name = RecognisedName(TypedName());
  if (!IsReservedGroupName(name)) return;
  txtGroupName.SetEnabled(false);
  if (name == L"Everyone") {
    List1[1].SetEnabled(false);
    cmdBtn[11].SetEnabled(false);
    cmdBtn[12].SetEnabled(false);
  } else {
    List1[2].SetEnabled(false);
    cmdBtn[21].SetEnabled(false);
    cmdBtn[22].SetEnabled(false);
    keepsMembers_ = true;
    IsRemoveAdmin = false;
  }
}

void frmEditGroup::Form_Unload(bool& cancel) {
  GroupDialog::Form_Unload(cancel);
  if (!cancel) group_.reset();
}

// Reports under the name that administrators know from the dialog's load.
data::ExitStatus frmEditGroup::UpdateTransaction() {
  try {
    exchange_.AddNode = false;
    exchange_.accountGone = false;
    if (!EditGroup() || EditGroupUser() == data::kFailed ||
        EditGroupPermissions() == data::kFailed) {
      return data::kFailed;
    }
    HandBack();
    return data::kDone;
  } catch (...) {
    exchange_.AddNode = false;
    app::ReportError(exchange_.global, L"Form Load");
    return data::kFailed;
  }
}

bool frmEditGroup::EditGroup() {
  try {
    const bool written = RewriteRow();
    group_->Close();
    exchange_.accountGone = !written;
    return written;
  } catch (const data::RunTimeError& error) {
    exchange_.accountGone = error.Number() == data::kRowGone;
    app::ReportError(exchange_.global, L"EditGroup");
  } catch (...) {
    app::ReportError(exchange_.global, L"EditGroup");
  }
  return false;
}

// False when the group has no row any more.
bool frmEditGroup::RewriteRow() {
  storedName_ = StoredGroupName(Server()).Of(TypedName());
  const std::wstring description = TypedDescription();
  bool written = false;
  for (group_->MoveFirst(); !group_->EndOfRows(); group_->MoveNext()) {
    if (group_->Column(0).Integer() != GroupID) continue;
    group_->Edit();
    group_->SetColumn(L"NAME", storedName_);
    data::FieldValue newDescription;
    if (!description.empty()) {
      newDescription = Server().GetDisplayName(description, data::kDescriptionToStore);
    }
    group_->SetColumn(L"DESCR", newDescription);
    group_->Update();
    written = true;
  }
  return written;
}

data::ExitStatus frmEditGroup::EditGroupUser() {
  try {
    Connection().Execute(data::SqlDeleteGroupMemberships(GroupID));
    AddMemberRows();
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"EditGroupUser");
    return data::kFailed;
  }
}

data::ExitStatus frmEditGroup::EditGroupPermissions() {
  try {
    Connection().Execute(data::SqlDeleteGroupPermissions(GroupID));
    AddPermissionRows();
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"EditGroupPermissions");
    return data::kFailed;
  }
}

}  // namespace dialogs
