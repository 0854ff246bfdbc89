#include "GroupDialogs.h"

namespace dialogs {

using controls::ListBox;

void GroupDialogs::Edit(std::int32_t groupId, const std::function<void(frmEditGroup&)>& script,
                        Where where) {
  frmEditGroup dialog(exchange);
  dialog.GroupID = groupId;
  Show<frmEditGroup>(dialog, script, where);
}

void GroupDialogs::New(const std::function<void(frmNewGroup&)>& script, Where where) {
  frmNewGroup dialog(exchange);
  Show<frmNewGroup>(dialog, script, where);
}

void GroupDialogs::AddUsers(std::int32_t groupId,
                            const std::function<void(frmAddUserInGroup&)>& script, Where where) {
  frmAddUserInGroup dialog(exchange);
  dialog.IsRemoveAdmin = groupId != window.accounts.administratorsGroupId;
  dialog.adminUserId = exchange.adminUserId;
  dialog.GroupID = groupId;
  dialog.GroupName = L"Labo";
  Show<frmAddUserInGroup>(dialog, script, where);
}

void GroupDialogs::ExpectChooser(const std::function<void(frmAddUserInGroup&)>& script,
                                 Where where) {
  user.ExpectModal(
      [script](controls::Form& form) { script(dynamic_cast<frmAddUserInGroup&>(form)); }, where);
}

Ids GroupDialogs::MembersOf(std::int32_t groupId) {
  return IdsIn("SELECT USERID FROM QRUSGP WHERE GROUPID = " + std::to_string(groupId) +
               " ORDER BY USERID");
}

Ids GroupDialogs::PermissionsOf(std::int32_t groupId) {
  return IdsIn("SELECT PERMID FROM QRGPRM WHERE GROUPID = " + std::to_string(groupId) +
               " ORDER BY PERMID");
}

std::vector<std::string> GroupDialogs::RowOf(std::int32_t groupId) {
  const auto rows =
      Raw().Rows("SELECT NAME, DESCR FROM QRGROUP WHERE GROUPID = " + std::to_string(groupId));
  return rows.empty() ? std::vector<std::string>{} : rows[0];
}

void GroupDialogs::ExpectNameSelected(const GroupDialog& dialog) {
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

}  // namespace dialogs
