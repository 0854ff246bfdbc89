#include "dialogs/UserDialog.h"

#include "app/MQVXMsgBox.h"
#include "app/StringIds.h"
#include "data/DisplayCodes.h"
#include "data/MSQLStatement.h"
#include "data/ProtectedId.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"

namespace dialogs {

using controls::ListBox;
using controls::TextBox;

UserDialog::UserDialog(Exchange& exchange, int templateId)
    : EditingDialog(exchange, templateId),
      lblUserName(*this, IDC_LBL_USER_NAME),
      txtUserName(*this, IDC_TXT_USER_NAME),
      lblFullName(*this, IDC_LBL_FULL_NAME),
      txtFullName(*this, IDC_TXT_FULL_NAME),
      lblPassword(*this, IDC_LBL_PASSWORD),
      txtPassword(*this, IDC_TXT_PASSWORD, TextBox::Masking::kMasked),
      lblConfirmPassword(*this, IDC_LBL_CONFIRM_PASSWORD),
      txtVerify(*this, IDC_TXT_VERIFY, TextBox::Masking::kMasked),
      fraMemberOf(*this, IDC_FRA_GROUPS_OF_USER),
      fraUserPermissions(*this, IDC_FRA_PERMISSIONS_OF_USER),
      List1(*this, IDC_LIST_USER, ListBox::Kind::kChecked, ListBox::Kind::kChecked),
      cmdBtn(*this, IDC_CMD_USER_BTN),
      cmdOK(*this, IDC_OK),
      cmdCancel(*this, IDC_CANCEL),
      Command1(*this, IDC_HELP_BUTTON) {}

// The buttons follow the lists from the start, also where nothing was there to be checked.
app::Outcome UserDialog::LoadDialog() {
  bLoading = true;
  bNoMessage = false;
  bRechecking = false;
  strEveryoneName.clear();
  SettingControls();
  SetLayout();
  SetEvents();
  const app::Outcome filled = FillControls();
  for (const int Index : List1.Numbers()) List1_Click(Index);
  bLoading = false;
  return filled;
}

void UserDialog::SettingControls() {
  SetUpWindow(Text(TitleId()), cmdOK, cmdCancel, Command1);
  lblUserName.SetCaption(Text(app::kUserNameLabel));
  lblFullName.SetCaption(Text(app::kFullNameLabel));
  lblPassword.SetCaption(Text(app::kPasswordLabel));
  lblConfirmPassword.SetCaption(Text(app::kConfirmationLabel));
  fraMemberOf.SetCaption(Text(app::kMemberOf));
  fraUserPermissions.SetCaption(Text(app::kUserPermissions));
  cmdBtn[kAllGroups].SetCaption(Text(app::kAllGroups));
  cmdBtn[kAllPermissions].SetCaption(Text(app::kAll));
  cmdBtn[kNoGroup].SetCaption(Text(app::kNoGroup));
  cmdBtn[kNoPermission].SetCaption(Text(app::kNone));
}

// The two lists share what the window gains. The four boxes follow one another in the tab order,
// the password boxes at 3 and 4, where a password that was too long is to be typed again.
void UserDialog::SetLayout() {
  using namespace controls;
  SetTabOrder({&lblUserName, &txtUserName, &txtFullName, &txtPassword, &txtVerify, &lblFullName,
               &lblPassword, &lblConfirmPassword, &fraMemberOf, &List1[kGroups],
               &cmdBtn[kAllGroups], &cmdBtn[kNoGroup], &fraUserPermissions, &List1[kPermissions],
               &cmdBtn[kAllPermissions], &cmdBtn[kNoPermission], &cmdOK, &cmdCancel, &Command1});
  for (TextBox* box : {&txtUserName, &txtFullName, &txtPassword, &txtVerify}) {
    box->SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRight);
  }
  const unsigned groups = kAnchorTop | kAnchorBottom | kAnchorLeft | kAnchorRightMiddle;
  fraMemberOf.SetAnchors(groups);
  List1[kGroups].SetAnchors(groups);
  const unsigned permissions = kAnchorTop | kAnchorBottom | kAnchorLeftMiddle | kAnchorRight;
  fraUserPermissions.SetAnchors(permissions);
  List1[kPermissions].SetAnchors(permissions);
  for (const int Index : {kAllGroups, kNoGroup}) {
    cmdBtn[Index].SetAnchors(kAnchorLeft | kAnchorBottom);
  }
  for (const int Index : {kAllPermissions, kNoPermission}) {
    cmdBtn[Index].SetAnchors(kAnchorLeftMiddle | kAnchorRightMiddle | kAnchorBottom);
  }
}

void UserDialog::SetEvents() {
  for (TextBox* box : {&txtUserName, &txtFullName, &txtPassword, &txtVerify}) {
    box->Change = [this] { bChanged = true; };
  }
  SetPasswordEvents();
  for (const int Index : List1.Numbers()) {
    List1[Index].Click = [this, Index] { List1_Click(Index); };
    List1[Index].ItemCheck = [this, Index](int Item) { List1_ItemCheck(Index, Item); };
  }
  for (const int Index : cmdBtn.Numbers()) {
    cmdBtn[Index].Click = [this, Index] { cmdBtn_Click(Index); };
  }
}

app::Outcome UserDialog::FillGroups() {
  return List1AddItem(List1[kGroups], data::SqlSelectAllGroups(),
                      [this](std::int32_t id, const std::wstring& name) {
                        KeepName(id, name);
                        return Server().GetDisplayName(data::Trim(name), data::kGroupName);
                      });
}

app::Outcome UserDialog::FillPermissions() {
  return List1AddItem(List1[kPermissions], data::SqlSelectAllPermissions(),
                      [this](std::int32_t, const std::wstring& name) {
                        return Server().GetDisplayName(data::Trim(name), data::kPermissionName);
                      });
}

void UserDialog::KeepName(std::int32_t groupId, const std::wstring& name) {
  if (data::IsProtectedId(EveryoneGroupID, groupId)) strEveryoneName = name;
}

bool UserDialog::IsProtectedGroup(std::int32_t groupId) const {
  return data::IsProtectedId(EveryoneGroupID, groupId);
}

void UserDialog::cmdBtn_Click(int Index) {
  bChanged = true;
  switch (Index) {
    case kAllGroups:
      CheckAllReported(L"SelectAllRecord", List1[kGroups], true);
      break;
    case kAllPermissions:
      CheckAllReported(L"SelectAllRecord", List1[kPermissions], true);
      break;
    case kNoGroup:
      RemoveAllGroups();
      break;
    case kNoPermission:
      CheckAllReported(L"RemoveAllRecord", List1[kPermissions], false);
      break;
  }
}

// What is protected stays checked without a word; one message then names all of it.
void UserDialog::RemoveAllGroups() {
  bNoMessage = true;
  CheckAllReported(L"RemoveAllRecord", List1[kGroups], false);
  app::MQVXMsgBox(exchange_.global).ShowCannotRemoveUserFromGroup(ProtectedNames());
  bNoMessage = false;
}

void UserDialog::List1_Click(int Index) {
  ListBox& list = List1[Index];
  const int checked = list.SelCount();
  const bool all = checked == list.ListCount();
  EnableButton(cmdBtn[Index == kGroups ? kAllGroups : kAllPermissions], !all, list);
  EnableButton(cmdBtn[Index == kGroups ? kNoGroup : kNoPermission], all || checked > 0, list);
}

// A protected group is checked again whichever way its check has changed. The change that this
// makes is the program's own and no reason for another message.
void UserDialog::List1_ItemCheck(int Index, int Item) {
  if (bLoading || bRechecking) return;
  bChanged = true;
  ListBox& list = List1[Index];
  if (Index != kGroups || !IsProtectedGroup(list.ItemData(Item))) return;
  if (!bNoMessage) {
    app::MQVXMsgBox(exchange_.global).ShowCannotRemoveUserFromGroup(list.List(Item));
  }
  bRechecking = true;
  list.SetSelected(Item, true);
  bRechecking = false;
}

// The dialog closes also when something could not be written: that has been reported.
void UserDialog::cmdOK_Click() {
  if (!IsAccepted() || !MaySave()) return;
  exchange_.AddNode = UpdateTransaction() == app::Outcome::kDone;
  Close();
}

void UserDialog::AddLinks(const ListBox& list, std::wstring_view statement, std::int32_t userId) {
  const auto rows = Connection().OpenResultSet(statement);
  for (const std::int32_t id : SelectedData(list)) {
    rows->AddNew();
    rows->SetColumn(0, userId);
    rows->SetColumn(1, id);
    rows->Update();
  }
  rows->Close();
}

void UserDialog::HandBack() {
  const std::wstring name = txtUserName.Text();
  const std::wstring fullName = txtFullName.Text();
  exchange_.StoredName = data::Trim(name);
  exchange_.UserName = exchange_.StoredName;
  if (!data::Trim(fullName).empty()) {
    exchange_.UserName += L" (" + std::wstring(data::Trim(fullName)) + L")";
  }
}

}  // namespace dialogs
