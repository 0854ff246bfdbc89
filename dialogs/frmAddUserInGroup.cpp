#include "dialogs/frmAddUserInGroup.h"

#include <unordered_set>

#include "app/ErrorReport.h"
#include "app/LocaleFont.h"
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

void frmAddUserInGroup::Form_Load() {
  try {
    SettingControls();
    if (Fill() == data::kFailed) {
      Close();
      return;
    }
    for (int Index : List1.Numbers()) {
      if (List1[Index].ListCount() > 0) SelectOnly(List1[Index], 0);
    }
    List1_Click();
    bChanged = false;
  } catch (...) {
    app::ReportError(exchange_.global, L"Form Load");
    Close();
  }
}

// A group dialog keeps its members as they were when this one is closed without OK; its own
// question covers them.
void frmAddUserInGroup::Form_Unload(bool& cancel) {
  if (Mode != CallerMode::kMainWindow) bChanged = false;
  EditingDialog::Form_Unload(cancel);
}

void frmAddUserInGroup::SettingControls() {
  app::SetLocaleFont(*this);
  SetCaptions();
  SetLayout();
  SetEvents();
}

void frmAddUserInGroup::SetCaptions() {
  const auto text = [this](int id) { return exchange_.global.LoadResString(id); };
  SetCaption(text(app::kAddUsersTitle) + GroupName);
  SetIcon(IDI_PROGRAM);
  fraAvailableUser.SetCaption(text(app::kAvailableUsers));
  fraSelecteUsers.SetCaption(text(app::kSelectedUsers));
  for (int Index : lbl1.Numbers()) lbl1[Index].SetCaption(text(app::kAddUsersStep1 + Index - 1));
  for (int Index : cmdBtn.Numbers()) cmdBtn[Index].SetCaption(text(app::kMoveRight + Index - 1));
  SetDialogButtons(cmdOK, cmdCancel, Command1);
}

// The two sides share what the window gains; the buttons stay between them.
void frmAddUserInGroup::SetLayout() {
  using namespace controls;
  SetTabOrder({&lbl1[1], &txtUserName[1], &lbl1[2], &fraAvailableUser, &List1[1], &cmdBtn[1],
               &cmdBtn[2], &cmdBtn[3], &cmdBtn[4], &lbl1[3], &txtUserName[2], &lbl1[4],
               &fraSelecteUsers, &List1[2], &cmdOK, &cmdCancel, &Command1});
  const unsigned left = kAnchorTop | kAnchorLeft | kAnchorRightMiddle;
  const unsigned right = kAnchorTop | kAnchorLeftMiddle | kAnchorRight;
  for (Control* control : {static_cast<Control*>(&lbl1[1]), static_cast<Control*>(&lbl1[2]),
                           static_cast<Control*>(&txtUserName[1])}) {
    control->SetAnchors(left);
  }
  for (Control* control : {static_cast<Control*>(&lbl1[3]), static_cast<Control*>(&lbl1[4]),
                           static_cast<Control*>(&txtUserName[2])}) {
    control->SetAnchors(right);
  }
  fraAvailableUser.SetAnchors(left | kAnchorBottom);
  List1[1].SetAnchors(left | kAnchorBottom);
  fraSelecteUsers.SetAnchors(right | kAnchorBottom);
  List1[2].SetAnchors(right | kAnchorBottom);
  for (int Index : cmdBtn.Numbers()) {
    cmdBtn[Index].SetAnchors(kAnchorTop | kAnchorLeftMiddle | kAnchorRightMiddle);
  }
  for (CommandButton* button : {&cmdOK, &cmdCancel, &Command1}) {
    button->SetAnchors(kAnchorRight | kAnchorBottom);
  }
  SetResizable(true);
}

void frmAddUserInGroup::SetEvents() {
  for (int Index : List1.Numbers()) {
    List1[Index].Click = [this] { List1_Click(); };
    // A double-click moves the item as the single arrow below its list does.
    List1[Index].DblClick = [this, Index] { cmdBtn_Click(Index == 1 ? 1 : 3); };
    txtUserName[Index].Change = [this, Index] { txtUserName_Change(Index); };
  }
  for (int Index : cmdBtn.Numbers()) {
    cmdBtn[Index].Click = [this, Index] { cmdBtn_Click(Index); };
  }
}

// The left list shows all users for a moment only, and so not at all.
data::ExitStatus frmAddUserInGroup::Fill() {
  const ListBox::Update left(List1[1]);
  const ListBox::Update right(List1[2]);
  if (List1AddItem(data::SqlSelectAllUsers(), 1) == data::kFailed) return data::kFailed;
  return UpdateAddItem();
}

data::ExitStatus frmAddUserInGroup::List1AddItem(std::wstring_view statement, int Index) {
  try {
    List1[Index].Clear();
    AddRows(List1[Index], *exchange_.global.databaseConnection, statement);
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"List1AddItem");
    return data::kFailed;
  }
}

data::ExitStatus frmAddUserInGroup::UpdateAddItem() {
  try {
    if (Mode == CallerMode::kMainWindow) {
      AddRows(List1[2], *exchange_.global.databaseConnection, data::SqlSelectGroupUsers(GroupID));
    } else {
      SetItems(List1[2], Items(*Members));
    }
    LeaveOutMembers();
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"UpdateAddItem");
    return data::kFailed;
  }
}

// Takes the members out of the left list. The list is made anew: taking thousands out of it one by
// one would move all the others each time.
void frmAddUserInGroup::LeaveOutMembers() {
  std::unordered_set<std::int32_t> members;
  for (const ListItem& member : Items(List1[2])) members.insert(member.itemData);
  if (members.empty()) return;
  std::vector<ListItem> others = Items(List1[1]);
  std::erase_if(others, [&](const ListItem& user) { return members.contains(user.itemData); });
  SetItems(List1[1], others);
}

void frmAddUserInGroup::List1_Click() {
  const bool available = List1[1].ListCount() > 0;
  const bool selected = List1[2].ListCount() > 0;
  cmdBtn[1].SetEnabled(available);
  cmdBtn[2].SetEnabled(available);
  cmdBtn[3].SetEnabled(selected);
  cmdBtn[4].SetEnabled(selected);
}

}  // namespace dialogs
