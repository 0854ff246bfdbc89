#include "dialogs/frmEditGroup.h"

#include "app/StringIds.h"
#include "data/DisplayCodes.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "dialogs/AccountNames.h"
#include "dialogs/StoredGroupName.h"
#include "resources/ResourceIds.h"

namespace dialogs {

frmEditGroup::frmEditGroup(Exchange& exchange) : GroupDialog(exchange, IDD_EDIT_GROUP) {
  GroupID = -1;
}

app::Outcome frmEditGroup::LoadDialog() {
  IsRemoveAdmin = true;
  adminUserId_ = 0;
  keepsMembers_ = false;
  loadedName_.clear();
  SettingControls(app::kEditGroupTitle);
  exchange_.accountGone = !ReadGroup();
  if (exchange_.accountGone || FillLists() == app::Outcome::kFailed) return app::Outcome::kFailed;
  EnableRemove();
  ProtectGroup();
  return app::Outcome::kDone;
}

// The rows are read to their end: a set that rests on a row would keep others from writing for as
// long as the dialog is open.
bool frmEditGroup::ReadGroup() {
  group_ = Connection().OpenResultSet(data::SqlSelectGroup(GroupID));
  const bool found = !group_->EndOfRows();
  for (; !group_->EndOfRows(); group_->MoveNext()) {
    loadedName_ = TrimmedName(GroupID, group_->Column(1).Text());
    txtGroupName.SetText(Server().GetDisplayName(loadedName_, data::kGroupName));
    if (group_->Column(2).IsNullOrEmpty()) continue;
    const std::wstring description = group_->Column(2).Text();
    txtDesc.SetText(Server().GetDisplayName(data::Trim(description), data::kGroupDescription));
  }
  return found;
}

app::Outcome frmEditGroup::FillLists() {
  if (FillMembers() == app::Outcome::kFailed || FillPermissions() == app::Outcome::kFailed) {
    return app::Outcome::kFailed;
  }
  return SelectListItem(GroupID, kPermissions);
}

app::Outcome frmEditGroup::SelectListItem(std::int32_t groupId, List index) {
  return Reported(L"SelectListItem", [&] {
    controls::ListBox& list = List1[index];
    const controls::ListBox::Update update(list);
    for (int i = 0; i < list.ListCount(); ++i) {
      const auto rows =
          Connection().OpenResultSet(data::SqlSelectGroupPermission(groupId, list.ItemData(i)));
      if (!rows->EndOfRows()) list.SetSelected(i, true);
      rows->Close();
    }
  });
}

// Nobody leaves Everyone, and nobody, Admin least of all, is taken out of Administrators here. The
// name as stored decides where it is one of the two; a server that does not map the displayed form
// back must not cost the group its protection.
void frmEditGroup::ProtectGroup() {
  const std::wstring recognised = RecognisedName(TypedName());
  const std::wstring& name = IsReservedGroupName(loadedName_) ? loadedName_ : recognised;
  if (!IsReservedGroupName(name)) return;
  txtGroupName.SetEnabled(false);
  if (name == L"Everyone") {
    List1[kMembers].SetEnabled(false);
    cmdBtn[kAssign].SetEnabled(false);
    cmdBtn[kAllPermissions].SetEnabled(false);
  } else {
    List1[kPermissions].SetEnabled(false);
    cmdBtn[kRemove].SetEnabled(false);
    cmdBtn[kNoPermission].SetEnabled(false);
    keepsMembers_ = true;
    IsRemoveAdmin = false;
  }
}

void frmEditGroup::Form_Unload(bool& cancel) {
  GroupDialog::Form_Unload(cancel);
  if (!cancel) group_.reset();
}

bool frmEditGroup::MaySave() const {
  if (!exchange_.MaySaveGroup) return true;
  std::vector<std::int32_t> members;
  for (const ListItem& member : Items(List1[kMembers])) members.push_back(member.itemData);
  return exchange_.MaySaveGroup(GroupID, members, SelectedData(List1[kPermissions]));
}

// Reports under the name that administrators know from the dialog's load.
app::Outcome frmEditGroup::UpdateTransaction() {
  return Reported(L"Form Load", [this] {
    if (EditGroup() == app::Outcome::kFailed || EditGroupUser() == app::Outcome::kFailed ||
        EditGroupPermissions() == app::Outcome::kFailed) {
      return app::Outcome::kFailed;
    }
    HandBack();
    return app::Outcome::kDone;
  });
}

app::Outcome frmEditGroup::EditGroup() {
  return WriteRow(L"EditGroup", [this] {
    const bool written = RewriteRow();
    group_->Close();
    return written;
  });
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

app::Outcome frmEditGroup::EditGroupUser() {
  return Reported(L"EditGroupUser", [this] {
    Connection().Execute(data::SqlDeleteGroupMemberships(GroupID));
    AddMemberRows();
  });
}

app::Outcome frmEditGroup::EditGroupPermissions() {
  return Reported(L"EditGroupPermissions", [this] {
    Connection().Execute(data::SqlDeleteGroupPermissions(GroupID));
    AddPermissionRows();
  });
}

}  // namespace dialogs
