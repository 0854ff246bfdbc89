// What the user dialog does on OK, what it writes and what it hands back to the main window.

#include "data/Text.h"
#include "dialogs/UserDialog.h"

namespace dialogs {

// The dialog closes also when something could not be written: that has been reported.
void UserDialog::cmdOK_Click() {
  if (!IsAccepted()) return;
  UpdateTransaction();
  Close();
}

void UserDialog::AddLinks(int Index, std::wstring_view statement, std::int32_t userId) {
  const auto rows = Connection().OpenResultSet(statement);
  const controls::ListBox& list = List1[Index];
  for (int i = 0; i < list.ListCount(); ++i) {
    if (!list.Selected(i)) continue;
    rows->AddNew();
    rows->SetColumn(0, userId);
    rows->SetColumn(1, list.ItemData(i));
    rows->Update();
  }
  rows->Close();
}

void UserDialog::HandBack(bool written) {
  exchange_.AddNode = false;
  if (!written) return;
  const std::wstring name = txtUserName.Text();
  const std::wstring fullName = txtFullName.Text();
  exchange_.StoredName = data::Trim(name);
  exchange_.UserName = exchange_.StoredName;
  if (!data::Trim(fullName).empty()) {
    exchange_.UserName += L" (" + std::wstring(data::Trim(fullName)) + L")";
  }
  exchange_.AddNode = true;
}

}  // namespace dialogs
