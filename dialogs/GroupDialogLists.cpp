// The group dialog's lists: the members and the permissions to be checked.

#include <algorithm>

#include "app/ErrorReport.h"
#include "app/MQVXMsgBox.h"
#include "data/ProtectedId.h"
#include "dialogs/GroupDialog.h"
#include "dialogs/ListItems.h"

namespace dialogs {

using controls::ListBox;

data::ExitStatus GroupDialog::List1AddItem(std::wstring_view statement, int Index) {
  try {
    List1[Index].Clear();
    AddRows(List1[Index], Connection(), statement,
            [this, Index](std::int32_t id, std::wstring_view name) {
              if (Index == 1 && name == L"Admin") adminUserId_ = id;
            });
    return data::kDone;
  } catch (...) {
    app::ReportError(exchange_.global, L"List1AddItem");
    return data::kFailed;
  }
}

void GroupDialog::SelectAllRecord(int Index) {
  try {
    CheckAll(List1[Index], true);
  } catch (...) {
    app::ReportError(exchange_.global, L"SelectAllRecord");
  }
}

void GroupDialog::RemoveAllRecord(int Index) {
  try {
    CheckAll(List1[Index], false);
  } catch (...) {
    app::ReportError(exchange_.global, L"RemoveAllRecord");
  }
}

void GroupDialog::EnableRemove() {
  cmdBtn[21].SetEnabled(!keepsMembers_ && List1[1].ListCount() > 0);
}

// The chooser changes the list of members only on its OK. That counts as a change of the group when
// the list is another one then.
void GroupDialog::AssignMembers() {
  const std::vector<ListItem> before = Items(List1[1]);
  frmAddUserInGroup chooser(exchange_);
  chooser.IsRemoveAdmin = IsRemoveAdmin;
  chooser.adminUserId = exchange_.adminUserId != 0 ? exchange_.adminUserId : adminUserId_;
  chooser.Mode = mode_;
  chooser.GroupID = GroupID;
  chooser.GroupName = TypedName();
  chooser.Members = &List1[1];
  chooser.ShowModal(*this);
  if (Items(List1[1]) != before) bChanged = true;
}

void GroupDialog::RemoveMember() {
  ListBox& members = List1[1];
  const int item = members.ListIndex();
  if (item < 0) return;
  const std::int32_t userId = members.ItemData(item);
  if (!IsRemoveAdmin && data::IsProtectedId(adminUserId_, userId)) {
    app::MQVXMsgBox(exchange_.global).ShowCannotRemoveUserFromGroup(members.List(item));
    return;
  }
  members.RemoveItem(item);
  // The next member takes the selection, so that several can be removed in a row.
  members.SetListIndex(std::min(item, members.ListCount() - 1));
  bChanged = true;
}

}  // namespace dialogs
