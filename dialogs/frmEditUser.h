#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "dialogs/UserDialog.h"

namespace dialogs {

// Edits a user. Its public members are set before it is shown.
class frmEditUser : public UserDialog {
 public:
  explicit frmEditUser(Exchange& exchange);

  // Whether the user may be taken out of the group "Administrators".
  bool IsRemoveAdministrator = true;
  // That group; 0 protects none.
  std::int32_t AdminGroupID = 0;
  std::int32_t UserID = -1;

  void Form_Load() override;
  void Form_Unload(bool& cancel) override;

 protected:
  app::HelpTopic Topic() const override { return app::kTopicEditUser; }
  void KeepName(std::int32_t groupId, const std::wstring& name) override;
  bool IsProtectedGroup(std::int32_t groupId) const override;
  std::wstring ProtectedNames() const override;
  bool IsAccepted() override;
  std::wstring_view Counted(std::wstring_view text) const override;
  data::ExitStatus UpdateTransaction() override;

 private:
  // False when the user has no row any more.
  bool ReadUser();
  data::ExitStatus Fill();
  data::ExitStatus SelectListItem(std::int32_t userId, int Index);
  void ForgetUser();

  bool IsPasswordKept() const;

  bool EditUser();
  bool ChangeRow();
  data::ExitStatus EditUserGroups();
  data::ExitStatus EditUserPermissions();

  std::unique_ptr<data::ResultSet> rows_;  // the user's row, from the load to the save
  std::wstring strUserName;                // as loaded
  std::wstring strPassword;                // as loaded, plain; gone when the dialog is
  std::wstring strAdminName;
};

}  // namespace dialogs
