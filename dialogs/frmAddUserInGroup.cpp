#include "dialogs/frmAddUserInGroup.h"

#include <unordered_set>

#include "app/StringIds.h"
#include "data/MSQLStatement.h"
#include "resources/ResourceIds.h"

namespace dialogs {

using controls::ListBox;

frmAddUserInGroup::frmAddUserInGroup(Exchange& exchange)
    : EditingDialog(exchange, IDD_ADD_USER_IN_GROUP),
      lbl1(*this, IDC_LBL_ADD_USER),
      txtUserName(*this, IDC_TXT_ADD_USER),
      fraAvailableUser(*this, IDC_FRA_AVAILABLE_USER),
      fraSelecteUsers(*this, IDC_FRA_SELECTED_USERS),
      List1(*this, IDC_LIST_ADD_USER, ListBox::Kind::kMultiSelect, ListBox::Kind::kMultiSelect),
      cmdBtn(*this, IDC_CMD_ADD_USER),
      cmdOK(*this, IDC_OK),
      cmdCancel(*this, IDC_CANCEL),
      Command1(*this, IDC_HELP_BUTTON) {}

app::Outcome frmAddUserInGroup::LoadDialog() {
  SettingControls();
  if (FillLists() == app::Outcome::kFailed) return app::Outcome::kFailed;
  for (int Index : List1.Numbers()) {
    if (List1[Index].ListCount() > 0) SelectOnly(List1[Index], 0);
  }
  List1_Click();
  return app::Outcome::kDone;
}

// A group dialog keeps its members as they were when this one is closed without OK; its own
// question covers them.
void frmAddUserInGroup::Form_Unload(bool& cancel) {
  if (Members != nullptr) bChanged = false;
  EditingDialog::Form_Unload(cancel);
}

void frmAddUserInGroup::SettingControls() {
  SetCaptions();
  SetLayout();
  SetEvents();
}

void frmAddUserInGroup::SetCaptions() {
  SetUpWindow(Text(app::kAddUsersTitle) + GroupName, cmdOK, cmdCancel, Command1);
  fraAvailableUser.SetCaption(Text(app::kAvailableUsers));
  fraSelecteUsers.SetCaption(Text(app::kSelectedUsers));
  for (int Index : lbl1.Numbers()) lbl1[Index].SetCaption(Text(app::kAddUsersStep1 + Index - 1));
  for (int Index : cmdBtn.Numbers()) {
    cmdBtn[Index].SetCaption(Text(app::kMoveRight + Index - 1));
    cmdBtn[Index].SetAccessibleName(Text(app::kMoveRightName + Index - 1));
  }
}

// The two sides share what the window gains; the buttons stay between them.
void frmAddUserInGroup::SetLayout() {
  using namespace controls;
  SetTabOrder({&lbl1[1], &txtUserName[kOthers], &lbl1[2], &fraAvailableUser, &List1[kOthers],
               &cmdBtn[kAdd], &cmdBtn[kAddAll], &cmdBtn[kRemove], &cmdBtn[kRemoveAll], &lbl1[3],
               &txtUserName[kMembers], &lbl1[4], &fraSelecteUsers, &List1[kMembers], &cmdOK,
               &cmdCancel, &Command1});
  const unsigned left = kAnchorTop | kAnchorLeft | kAnchorRightMiddle;
  const unsigned right = kAnchorTop | kAnchorLeftMiddle | kAnchorRight;
  for (Control* control : {static_cast<Control*>(&lbl1[1]), static_cast<Control*>(&lbl1[2]),
                           static_cast<Control*>(&txtUserName[kOthers])}) {
    control->SetAnchors(left);
  }
  for (Control* control : {static_cast<Control*>(&lbl1[3]), static_cast<Control*>(&lbl1[4]),
                           static_cast<Control*>(&txtUserName[kMembers])}) {
    control->SetAnchors(right);
  }
  fraAvailableUser.SetAnchors(left | kAnchorBottom);
  List1[kOthers].SetAnchors(left | kAnchorBottom);
  fraSelecteUsers.SetAnchors(right | kAnchorBottom);
  List1[kMembers].SetAnchors(right | kAnchorBottom);
  for (int Index : cmdBtn.Numbers()) {
    cmdBtn[Index].SetAnchors(kAnchorTop | kAnchorLeftMiddle | kAnchorRightMiddle);
  }
}

void frmAddUserInGroup::SetEvents() {
  for (const List index : {kOthers, kMembers}) {
    List1[index].Click = [this] { List1_Click(); };
    // A double-click moves the item as the single arrow below its list does.
    List1[index].DblClick = [this, index] { cmdBtn_Click(MoveButton(index)); };
    txtUserName[index].Change = [this, index] { txtUserName_Change(index); };
    txtUserName[index].GotFocus = [this] { ChooseDefaultButton(); };
    txtUserName[index].LostFocus = [this] { ChooseDefaultButton(); };
  }
  for (int Index : cmdBtn.Numbers()) {
    cmdBtn[Index].Click = [this, Index] { cmdBtn_Click(Index); };
  }
}

// All users are in the left list for a moment only, in which nothing is painted.
app::Outcome frmAddUserInGroup::FillLists() {
  const ListBox::Update left(List1[kOthers]);
  const ListBox::Update right(List1[kMembers]);
  if (List1AddItem(List1[kOthers], data::SqlSelectAllUsers(), TrimmedName) ==
      app::Outcome::kFailed) {
    return app::Outcome::kFailed;
  }
  return UpdateAddItem();
}

app::Outcome frmAddUserInGroup::UpdateAddItem() {
  return Reported(L"UpdateAddItem", [this] {
    if (Members == nullptr) {
      FillList(List1[kMembers], Connection(), data::SqlSelectGroupUsers(GroupID), TrimmedName);
    } else {
      SetItems(List1[kMembers], Items(*Members));
    }
    LeaveOutMembers();
  });
}

// Takes the members out of the left list. The list is filled again: taking thousands out of it one
// by one would move all the others each time.
void frmAddUserInGroup::LeaveOutMembers() {
  std::unordered_set<std::int32_t> members;
  for (const ListItem& member : Items(List1[kMembers])) members.insert(member.itemData);
  if (members.empty()) return;
  std::vector<ListItem> others = Items(List1[kOthers]);
  std::erase_if(others, [&](const ListItem& user) { return members.contains(user.itemData); });
  SetItems(List1[kOthers], others);
}

void frmAddUserInGroup::List1_Click() {
  const bool available = List1[kOthers].ListCount() > 0;
  const bool selected = List1[kMembers].ListCount() > 0;
  for (int Index : {kAdd, kAddAll}) EnableButton(cmdBtn[Index], available, List1[kOthers]);
  for (int Index : {kRemove, kRemoveAll}) EnableButton(cmdBtn[Index], selected, List1[kMembers]);
}

void frmAddUserInGroup::cmdOK_Click() {
  if (Members == nullptr) {
    if (!MaySave()) return;
    exchange_.AddNode = WriteMemberships() == app::Outcome::kDone;
  } else {
    SetItems(*Members, Items(List1[kMembers]));
  }
  Close();
}

// Only an emptied list takes memberships away.
bool frmAddUserInGroup::MaySave() const {
  return List1[kMembers].ListCount() > 0 || !exchange_.MayRemoveMembers ||
         exchange_.MayRemoveMembers(GroupID);
}

void frmAddUserInGroup::cmdCancel_Click() {
  if (Members == nullptr) {
    EditingDialog::cmdCancel_Click();
  } else {
    Close();
  }
}

// Memberships are only added, one for each member who has none, unless nobody is left: then all of
// them go. A user who was moved out while others stayed keeps his.
app::Outcome frmAddUserInGroup::WriteMemberships() {
  if (NewUserGroups() == app::Outcome::kFailed) return app::Outcome::kFailed;
  return List1[kMembers].ListCount() == 0 ? DeleteUserGroups() : app::Outcome::kDone;
}

app::Outcome frmAddUserInGroup::NewUserGroups() {
  return Reported(L"NewUserGroups", [this] {
    for (const ListItem& user : Items(List1[kMembers])) {
      const auto rows =
          Connection().OpenResultSet(data::SqlSelectMembership(GroupID, user.itemData));
      if (rows->EndOfRows()) {
        rows->AddNew();
        rows->SetColumn(L"GROUPID", GroupID);
        rows->SetColumn(L"USERID", user.itemData);
        rows->Update();
        ++exchange_.linksAdded;
      }
      rows->Close();
    }
  });
}

app::Outcome frmAddUserInGroup::DeleteUserGroups() {
  return Reported(L"DeleteUserGroups", [this] {
    Connection().Execute(data::SqlDeleteAllGroupUsers(GroupID));
    exchange_.membersRemoved = true;
  });
}

}  // namespace dialogs
