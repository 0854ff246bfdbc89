#include "dialogs/GroupDialog.h"

#include "app/ErrorReport.h"
#include "app/LocaleFont.h"
#include "app/MQVXMsgBox.h"
#include "app/StringIds.h"
#include "data/DisplayCodes.h"
#include "data/Text.h"
#include "dialogs/AccountNames.h"
#include "dialogs/SelectAll.h"
#include "resources/ResourceIds.h"

namespace dialogs {

using controls::ListBox;

GroupDialog::GroupDialog(Exchange& exchange, int templateId, CallerMode mode)
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
      Command1(*this, IDC_HELP_BUTTON),
      mode_(mode) {}

void GroupDialog::SettingControls(int titleId) {
  app::SetLocaleFont(*this);
  SetCaptions(titleId);
  SetLayout();
  SetEvents();
}

void GroupDialog::SetCaptions(int titleId) {
  const auto text = [this](int id) { return exchange_.global.LoadResString(id); };
  SetCaption(text(titleId));
  SetIcon(IDI_PROGRAM);
  lblGroupName.SetCaption(text(app::kGroupNameLabel));
  lblDesc.SetCaption(text(app::kDescriptionLabel));
  fraMembers.SetCaption(text(app::kMembers));
  fraGroupPermission.SetCaption(text(app::kGroupPermissions));
  cmdBtn[11].SetCaption(text(app::kAssign));
  cmdBtn[12].SetCaption(text(app::kAll));
  cmdBtn[21].SetCaption(text(app::kRemove));
  cmdBtn[22].SetCaption(text(app::kNone));
  SetDialogButtons(cmdOK, cmdCancel, Command1);
}

// The two lists share what the window gains.
void GroupDialog::SetLayout() {
  using namespace controls;
  SetTabOrder({&lblGroupName, &txtGroupName, &lblDesc, &txtDesc, &fraMembers, &List1[1],
               &cmdBtn[11], &cmdBtn[21], &fraGroupPermission, &List1[2], &cmdBtn[12], &cmdBtn[22],
               &cmdOK, &cmdCancel, &Command1});
  const unsigned height = kAnchorTop | kAnchorBottom;
  for (TextBox* box : {&txtGroupName, &txtDesc}) {
    box->SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRight);
  }
  fraMembers.SetAnchors(height | kAnchorLeft | kAnchorRightMiddle);
  List1[1].SetAnchors(height | kAnchorLeft | kAnchorRightMiddle);
  fraGroupPermission.SetAnchors(height | kAnchorLeftMiddle | kAnchorRight);
  List1[2].SetAnchors(height | kAnchorLeftMiddle | kAnchorRight);
  for (int Index : {11, 21}) cmdBtn[Index].SetAnchors(kAnchorLeft | kAnchorBottom);
  for (int Index : {12, 22}) {
    cmdBtn[Index].SetAnchors(kAnchorLeftMiddle | kAnchorRightMiddle | kAnchorBottom);
  }
  for (CommandButton* button : {&cmdOK, &cmdCancel, &Command1}) {
    button->SetAnchors(kAnchorRight | kAnchorBottom);
  }
  SetResizable(true);
}

void GroupDialog::SetEvents() {
  for (controls::TextBox* box : {&txtGroupName, &txtDesc}) {
    SelectAllOnFocus(*box);
    box->Change = [this] { bChanged = true; };
  }
  for (int Index : List1.Numbers()) List1[Index].ItemCheck = [this](int) { bChanged = true; };
  for (int Index : cmdBtn.Numbers()) {
    cmdBtn[Index].Click = [this, Index] { cmdBtn_Click(Index); };
  }
}

void GroupDialog::cmdBtn_Click(int Index) {
  try {
    switch (Index) {
      case 11:
        AssignMembers();
        break;
      case 12:
        SelectAllRecord(2);
        break;
      case 21:
        RemoveMember();
        break;
      case 22:
        RemoveAllRecord(2);
        break;
    }
    EnableRemove();
  } catch (...) {
    app::ReportError(exchange_.global, L"cmdBtn_Click");
  }
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

void GroupDialog::cmdOK_Click() {
  try {
    if (!IsNameAccepted()) {
      ReturnToName();
      return;
    }
    UpdateTransaction();
    Close();
  } catch (...) {
    app::ReportError(exchange_.global, L"cmdOK_Click");
  }
}

// Tells the user why when it is not.
bool GroupDialog::IsNameAccepted() {
  const app::mGlobal& global = exchange_.global;
  const std::wstring name = TypedName();
  if (name.empty()) {
    app::MQVXMsgBox(global).ShowInformation(global.LoadResString(app::kGroupNameMissing));
    return false;
  }
  if (IsNameReserved(name)) {
    app::MQVXMsgBox(global).ShowInformation(global.LoadResString(app::kGroupNameReserved));
    return false;
  }
  if (IsDuplicateGroup(global, exchange_.groupsTree.Nodes(), name, GroupID)) return false;
  // Under its display form a protected group is no duplicate of its stored name. A second group of
  // that name would take its place, and its protection, at the next start.
  if (txtGroupName.Enabled() && IsReservedGroupName(name)) {
    app::MQVXMsgBox(global).ShowInformation(global.LoadResString(app::kGroupNameReserved));
    return false;
  }
  return true;
}

void GroupDialog::ReturnToName() {
  txtGroupName.SetFocus();
  SelectAll(txtGroupName);
}

}  // namespace dialogs
