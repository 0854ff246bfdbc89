#include "dialogs/UserDialog.h"

#include "app/LocaleFont.h"
#include "app/StringIds.h"
#include "dialogs/SelectAll.h"
#include "resources/ResourceIds.h"

namespace dialogs {

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
      List1(*this, IDC_LIST_USER, controls::ListBox::Kind::kChecked,
            controls::ListBox::Kind::kChecked),
      cmdBtn(*this, IDC_CMD_USER_BTN),
      cmdOK(*this, IDC_OK),
      cmdCancel(*this, IDC_CANCEL),
      Command1(*this, IDC_HELP_BUTTON) {}

void UserDialog::StartLoading(int titleId) {
  bLoading = true;
  bNoMessage = false;
  bRechecking = false;
  strEveryoneName.clear();
  app::SetLocaleFont(*this);
  SettingControls(titleId);
  SetLayout();
  SetEvents();
}

// The buttons follow the lists from the start, also where nothing was there to be checked.
void UserDialog::FinishLoading() {
  for (const int Index : List1.Numbers()) List1_Click(Index);
  bLoading = false;
  bChanged = false;
}

void UserDialog::SettingControls(int titleId) {
  const auto text = [this](int id) { return exchange_.global.LoadResString(id); };
  SetCaption(text(titleId));
  SetIcon(IDI_PROGRAM);
  lblUserName.SetCaption(text(app::kUserNameLabel));
  lblFullName.SetCaption(text(app::kFullNameLabel));
  lblPassword.SetCaption(text(app::kPasswordLabel));
  lblConfirmPassword.SetCaption(text(app::kConfirmationLabel));
  fraMemberOf.SetCaption(text(app::kMemberOf));
  fraUserPermissions.SetCaption(text(app::kUserPermissions));
  cmdBtn[11].SetCaption(text(app::kAllGroups));
  cmdBtn[12].SetCaption(text(app::kAll));
  cmdBtn[21].SetCaption(text(app::kNoGroup));
  cmdBtn[22].SetCaption(text(app::kNone));
  SetDialogButtons(cmdOK, cmdCancel, Command1);
}

// The two lists share what the window gains. The password boxes come to lie at 3 and 4 in the tab
// order, where a password that is too long puts them: the order then stays what it is.
void UserDialog::SetLayout() {
  using namespace controls;
  SetTabOrder({&lblUserName, &txtUserName, &txtFullName, &txtPassword, &txtVerify, &lblFullName,
               &lblPassword, &lblConfirmPassword, &fraMemberOf, &List1[1], &cmdBtn[11], &cmdBtn[21],
               &fraUserPermissions, &List1[2], &cmdBtn[12], &cmdBtn[22], &cmdOK, &cmdCancel,
               &Command1});
  for (TextBox* box : {&txtUserName, &txtFullName, &txtPassword, &txtVerify}) {
    box->SetAnchors(kAnchorLeft | kAnchorTop | kAnchorRight);
  }
  const unsigned groups = kAnchorTop | kAnchorBottom | kAnchorLeft | kAnchorRightMiddle;
  fraMemberOf.SetAnchors(groups);
  List1[1].SetAnchors(groups);
  const unsigned permissions = kAnchorTop | kAnchorBottom | kAnchorLeftMiddle | kAnchorRight;
  fraUserPermissions.SetAnchors(permissions);
  List1[2].SetAnchors(permissions);
  for (const int Index : {11, 21}) cmdBtn[Index].SetAnchors(kAnchorLeft | kAnchorBottom);
  for (const int Index : {12, 22}) {
    cmdBtn[Index].SetAnchors(kAnchorLeftMiddle | kAnchorRightMiddle | kAnchorBottom);
  }
  for (CommandButton* button : {&cmdOK, &cmdCancel, &Command1}) {
    button->SetAnchors(kAnchorRight | kAnchorBottom);
  }
  SetResizable(true);
}

void UserDialog::SetEvents() {
  for (TextBox* box : {&txtUserName, &txtFullName, &txtPassword, &txtVerify}) {
    SelectAllOnFocus(*box);
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

}  // namespace dialogs
