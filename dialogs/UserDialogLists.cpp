// The user dialog's check lists: the groups and the permissions of the user.

#include "app/ErrorReport.h"
#include "app/MQVXMsgBox.h"
#include "data/DisplayCodes.h"
#include "data/ProtectedId.h"
#include "data/Text.h"
#include "dialogs/ListItems.h"
#include "dialogs/UserDialog.h"

namespace dialogs {

using controls::ListBox;

data::ExitStatus UserDialog::List1AddItem(std::wstring_view statement, int Index) {
  try {
    ListBox& list = List1[Index];
    const auto rows = Connection().OpenResultSet(statement);
    const ListBox::Update update(list);
    list.Clear();
    for (; !rows->EndOfRows(); rows->MoveNext()) {
      const std::int32_t id = rows->Column(0).Integer();
      const std::wstring stored = rows->Column(1).Text();
      const int code = Index == 1 ? data::kGroupName : data::kPermissionName;
      list.AddItem(Server().GetDisplayName(data::Trim(stored), code), id);
      if (Index == 1) KeepName(id, stored);
    }
    rows->Close();
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"List1AddItem");
    return data::kFailed;
  }
}

void UserDialog::SelectAllRecord(int Index) {
  try {
    CheckAll(List1[Index], true);
  } catch (...) {
    app::ReportError(exchange_.global, L"SelectAllRecord");
  }
}

void UserDialog::RemoveAllRecord(int Index) {
  try {
    CheckAll(List1[Index], false);
  } catch (...) {
    app::ReportError(exchange_.global, L"RemoveAllRecord");
  }
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
    case 11:
      SelectAllRecord(1);
      break;
    case 12:
      SelectAllRecord(2);
      break;
    case 21:
      RemoveAllGroups();
      break;
    case 22:
      RemoveAllRecord(2);
      break;
  }
}

// What is protected stays checked without a word; one message then names all of it.
void UserDialog::RemoveAllGroups() {
  bNoMessage = true;
  RemoveAllRecord(1);
  app::MQVXMsgBox(exchange_.global).ShowCannotRemoveUserFromGroup(ProtectedNames());
  bNoMessage = false;
}

void UserDialog::List1_Click(int Index) {
  const int checked = List1[Index].SelCount();
  const bool all = checked == List1[Index].ListCount();
  cmdBtn[10 + Index].SetEnabled(!all);
  cmdBtn[20 + Index].SetEnabled(all || checked > 0);
}

// A protected group is checked again whichever way its check has changed. The change that this
// makes is the program's own and no reason for another message.
void UserDialog::List1_ItemCheck(int Index, int Item) {
  if (bLoading || bRechecking) return;
  bChanged = true;
  ListBox& list = List1[Index];
  if (Index != 1 || !IsProtectedGroup(list.ItemData(Item))) return;
  if (!bNoMessage) {
    app::MQVXMsgBox(exchange_.global).ShowCannotRemoveUserFromGroup(list.List(Item));
  }
  bRechecking = true;
  list.SetSelected(Item, true);
  bRechecking = false;
}

}  // namespace dialogs
