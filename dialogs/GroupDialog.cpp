#include "dialogs/GroupDialog.h"

#include <algorithm>

#include "app/MQVXMsgBox.h"
#include "app/StringIds.h"
#include "data/DisplayCodes.h"
#include "data/MSQLStatement.h"
#include "data/ProtectedId.h"
#include "data/Text.h"
#include "dialogs/AccountNames.h"
#include "dialogs/SelectAll.h"
#include "dialogs/frmAddUserInGroup.h"
#include "resources/ResourceIds.h"

namespace dialogs {

using controls::ListBox;

GroupDialog::GroupDialog(Exchange& exchange, int templateId)
    : EditingDialog(exchange, templateId),
      lblGroupName(*this, IDC_LBL_GROUP_NAME),
      txtGroupName(*this, IDC_TXT_GROUP_NAME),
      lblDesc(*this, IDC_LBL_GROUP_DESC),
      txtDesc(*this, IDC_TXT_GROUP_DESC),
      fraMembers(*this, IDC_FRA_MEMBERS),
      fraGroupPermission(*this, IDC_FRA_PERMISSIONS_OF_GROUP),
      List1(*this, IDC_LIST_GROUP, ListBox::Kind::kPlain, ListBox::Kind::kChecked),
      cmdBtn(*this, IDC_CMD_GROUP_BTN),
      cmdOK(*this, IDC_OK),
      cmdCancel(*this, IDC_CANCEL),
      Command1(*this, IDC_HELP_BUTTON) {}

void GroupDialog::SettingControls(int titleId) {
  SetCaptions(titleId);
  SetLayout();
  SetEvents();
}

void GroupDialog::SetCaptions(int titleId) {
  SetUpWindow(Text(titleId), cmdOK, cmdCancel, Command1);
  lblGroupName.SetCaption(Text(app::kGroupNameLabel));
  lblDesc.SetCaption(Text(app::kDescriptionLabel));
  fraMembers.SetCaption(Text(app::kMembers));
  fraGroupPermission.SetCaption(Text(app::kGroupPermissions));
  cmdBtn[kAssign].SetCaption(Text(app::kAssign));
  cmdBtn[kAllPermissions].SetCaption(Text(app::kAll));
  cmdBtn[kRemove].SetCaption(Text(app::kRemove));
  cmdBtn[kNoPermission].SetCaption(Text(app::kNone));
}

// The two lists share what the window gains.
void GroupDialog::SetLayout() {
  using namespace controls;
  SetTabOrder({&lblGroupName, &txtGroupName, &lblDesc, &txtDesc, &fraMembers, &List1[kMembers],
               &cmdBtn[kAssign], &cmdBtn[kRemove], &fraGroupPermission, &List1[kPermissions],
               &cmdBtn[kAllPermissions], &cmdBtn[kNoPermission], &cmdOK, &cmdCancel, &Command1});
  for (TextBox* box : {&txtGroupName, &txtDesc}) {
    box->SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRight);
  }
  const unsigned height = kAnchorTop | kAnchorBottom;
  fraMembers.SetAnchors(height | kAnchorLeft | kAnchorRightMiddle);
  List1[kMembers].SetAnchors(height | kAnchorLeft | kAnchorRightMiddle);
  fraGroupPermission.SetAnchors(height | kAnchorLeftMiddle | kAnchorRight);
  List1[kPermissions].SetAnchors(height | kAnchorLeftMiddle | kAnchorRight);
  for (int Index : {kAssign, kRemove}) cmdBtn[Index].SetAnchors(kAnchorLeft | kAnchorBottom);
  for (int Index : {kAllPermissions, kNoPermission}) {
    cmdBtn[Index].SetAnchors(kAnchorLeftMiddle | kAnchorRightMiddle | kAnchorBottom);
  }
}

void GroupDialog::SetEvents() {
  for (controls::TextBox* box : {&txtGroupName, &txtDesc}) {
    box->Change = [this] { bChanged = true; };
  }
  for (int Index : List1.Numbers()) List1[Index].ItemCheck = [this](int) { bChanged = true; };
  for (int Index : cmdBtn.Numbers()) {
    cmdBtn[Index].Click = [this, Index] { cmdBtn_Click(Index); };
  }
}

app::Outcome GroupDialog::FillMembers() {
  return List1AddItem(List1[kMembers], data::SqlSelectGroupUsers(GroupID),
                      [this](std::int32_t id, const std::wstring& name) {
                        if (name == L"Admin") adminUserId_ = id;
                        return TrimmedName(id, name);
                      });
}

app::Outcome GroupDialog::FillPermissions() {
  return List1AddItem(List1[kPermissions], data::SqlSelectAllPermissions(), TrimmedName);
}

void GroupDialog::cmdBtn_Click(int Index) {
  static_cast<void>(Reported(L"cmdBtn_Click", [&] {
    switch (Index) {
      case kAssign:
        AssignMembers();
        break;
      case kAllPermissions:
        CheckAllReported(L"SelectAllRecord", List1[kPermissions], true);
        break;
      case kRemove:
        RemoveMember();
        break;
      case kNoPermission:
        CheckAllReported(L"RemoveAllRecord", List1[kPermissions], false);
        break;
    }
    EnableRemove();
  }));
}

void GroupDialog::EnableRemove() {
  EnableButton(cmdBtn[kRemove], !keepsMembers_ && List1[kMembers].ListCount() > 0, List1[kMembers]);
}

// The chooser changes the list of members only on its OK. That counts as a change of the group when
// the list is another one then.
void GroupDialog::AssignMembers() {
  ListBox& members = List1[kMembers];
  const std::vector<ListItem> before = Items(members);
  frmAddUserInGroup chooser(exchange_);
  chooser.IsRemoveAdmin = IsRemoveAdmin;
  chooser.adminUserId = exchange_.adminUserId != 0 ? exchange_.adminUserId : adminUserId_;
  chooser.GroupID = GroupID;
  chooser.GroupName = TypedName();
  chooser.Members = &members;
  chooser.ShowModal(*this);
  if (Items(members) != before) bChanged = true;
}

void GroupDialog::RemoveMember() {
  ListBox& members = List1[kMembers];
  const int item = members.ListIndex();
  if (item < 0) return;
  if (!IsRemoveAdmin && data::IsProtectedId(adminUserId_, members.ItemData(item))) {
    app::MQVXMsgBox(exchange_.global).ShowCannotRemoveUserFromGroup(members.List(item));
    return;
  }
  members.RemoveItem(item);
  // The next member takes the selection, so that several can be removed in a row.
  members.SetListIndex(std::min(item, members.ListCount() - 1));
  bChanged = true;
}

std::wstring GroupDialog::TypedName() const {
  const std::wstring typed = txtGroupName.Text();
  return std::wstring(data::Trim(typed));
}

std::wstring GroupDialog::TypedDescription() const {
  const std::wstring typed = txtDesc.Text();
  return std::wstring(data::Trim(typed));
}

std::wstring GroupDialog::RecognisedName(std::wstring_view name) {
  if (IsReservedGroupName(name)) return std::wstring(name);
  return Server().GetDisplayName(name, data::kTypedGroupName);
}

// The dialog closes also when something could not be written: that has been reported.
void GroupDialog::cmdOK_Click() {
  static_cast<void>(Reported(L"cmdOK_Click", [this] {
    if (!IsNameAccepted()) {
      ReturnToName();
      return;
    }
    if (!MaySave()) return;
    exchange_.AddNode = UpdateTransaction() == app::Outcome::kDone;
    Close();
  }));
}

// Tells the user why when it is not.
bool GroupDialog::IsNameAccepted() {
  const app::mGlobal& global = exchange_.global;
  const std::wstring name = TypedName();
  if (name.empty()) {
    app::MQVXMsgBox(global).ShowInformation(Text(app::kGroupNameMissing));
    return false;
  }
  if (IsNameReserved(name)) {
    app::MQVXMsgBox(global).ShowInformation(Text(app::kGroupNameReserved));
    return false;
  }
  return !IsDuplicateGroup(global, exchange_.groupsTree.Nodes(), name, GroupID);
}

void GroupDialog::ReturnToName() {
  txtGroupName.SetFocus();
  SelectAll(txtGroupName);
}

void GroupDialog::AddMemberRows() {
  const auto rows = Connection().OpenResultSet(data::SqlSelectGroupMemberships(GroupID));
  for (const ListItem& member : Items(List1[kMembers])) {
    rows->AddNew();
    rows->SetColumn(L"GROUPID", GroupID);
    rows->SetColumn(L"USERID", member.itemData);
    rows->Update();
  }
  rows->Close();
}

void GroupDialog::AddPermissionRows() {
  const auto rows = Connection().OpenResultSet(data::SqlSelectGroupPermRows(GroupID));
  for (const std::int32_t permission : SelectedData(List1[kPermissions])) {
    rows->AddNew();
    rows->SetColumn(L"GROUPID", GroupID);
    rows->SetColumn(L"PERMID", permission);
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
}

}  // namespace dialogs
