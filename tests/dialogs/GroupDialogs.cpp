#include "GroupDialogs.h"

namespace dialogs_test {

using controls::ListBox;

void GroupDialogs::Edit(std::int32_t groupId,
                        const std::function<void(dialogs::frmEditGroup&)>& script, Where where) {
  dialogs::frmEditGroup dialog(exchange);
  dialog.GroupID = groupId;
  Show<dialogs::frmEditGroup>(dialog, script, where);
}

void GroupDialogs::New(const std::function<void(dialogs::frmNewGroup&)>& script, Where where) {
  dialogs::frmNewGroup dialog(exchange);
  Show<dialogs::frmNewGroup>(dialog, script, where);
}

void GroupDialogs::AddUsers(std::int32_t groupId,
                            const std::function<void(dialogs::frmAddUserInGroup&)>& script,
                            Where where) {
  dialogs::frmAddUserInGroup dialog(exchange);
  dialog.IsRemoveAdmin = groupId != window.accounts.administratorsGroupId;
  dialog.adminUserId = exchange.adminUserId;
  dialog.GroupID = groupId;
  dialog.GroupName = L"Labo";
  Show<dialogs::frmAddUserInGroup>(dialog, script, where);
}

void GroupDialogs::ExpectChooser(const std::function<void(dialogs::frmAddUserInGroup&)>& script,
                                 Where where) {
  user.ExpectModal(
      [script](controls::Form& form) { script(dynamic_cast<dialogs::frmAddUserInGroup&>(form)); },
      where);
}

Strings GroupDialogs::Texts(const ListBox& list) {
  Strings texts;
  for (int i = 0; i < list.ListCount(); ++i) texts.push_back(list.List(i));
  return texts;
}

Ids GroupDialogs::DataOf(const ListBox& list) {
  Ids data;
  for (int i = 0; i < list.ListCount(); ++i) data.push_back(list.ItemData(i));
  return data;
}

Ids GroupDialogs::Selected(const ListBox& list) {
  Ids data;
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.Selected(i)) data.push_back(list.ItemData(i));
  }
  return data;
}

int GroupDialogs::ItemOf(const ListBox& list, std::int32_t itemData) {
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.ItemData(i) == itemData) return i;
  }
  ADD_FAILURE() << "no item " << itemData;
  return -1;
}

Ids GroupDialogs::MembersOf(std::int32_t groupId) {
  Ids members;
  for (const auto& row : Raw().Rows("SELECT USERID FROM QRUSGP WHERE GROUPID = " +
                                    std::to_string(groupId) + " ORDER BY USERID")) {
    members.push_back(std::stoi(row[0]));
  }
  return members;
}

Ids GroupDialogs::PermissionsOf(std::int32_t groupId) {
  Ids permissions;
  for (const auto& row : Raw().Rows("SELECT PERMID FROM QRGPRM WHERE GROUPID = " +
                                    std::to_string(groupId) + " ORDER BY PERMID")) {
    permissions.push_back(std::stoi(row[0]));
  }
  return permissions;
}

std::vector<std::string> GroupDialogs::RowOf(std::int32_t groupId) {
  const auto rows =
      Raw().Rows("SELECT NAME, DESCR FROM QRGROUP WHERE GROUPID = " + std::to_string(groupId));
  return rows.empty() ? std::vector<std::string>{} : rows[0];
}

void GroupDialogs::ExpectNameSelected(const dialogs::GroupDialog& dialog) {
  EXPECT_TRUE(dialog.txtGroupName.HasFocus());
  EXPECT_EQ(dialog.txtGroupName.SelStart(), 0);
  EXPECT_EQ(dialog.txtGroupName.SelLength(), static_cast<int>(dialog.txtGroupName.Text().size()));
}

void AppendNewRows(Strings& calls, const std::wstring& statement, int count) {
  for (int i = 0; i < count; ++i) {
    calls.push_back(L"AddNew " + statement);
    calls.push_back(L"Update " + statement);
  }
}

}  // namespace dialogs_test
