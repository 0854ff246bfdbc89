#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "app/StringIds.h"
#include "data/SecretText.h"
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

  void Form_Unload(bool& cancel) override;

 protected:
  app::Outcome FillControls() override;
  int TitleId() const override { return app::kEditUserTitle; }
  app::HelpTopic Topic() const override { return app::kTopicEditUser; }
  void KeepName(std::int32_t groupId, const std::wstring& name) override;
  bool IsProtectedGroup(std::int32_t groupId) const override;
  std::wstring ProtectedNames() const override;
  bool IsAccepted() override;
  std::wstring_view Counted(std::wstring_view text) const override;
  bool MaySave() const override;
  app::Outcome UpdateTransaction() override;

 private:
  // False when the user has no row any more.
  bool ReadUser();
  void ReadPassword(std::wstring_view stored);
  app::Outcome FillLists();
  app::Outcome SelectListItem(std::int32_t userId, List index);
  void ForgetUser();

  bool IsPasswordKept() const;

  app::Outcome EditUser();
  bool ChangeRow();
  app::Outcome EditUserGroups();
  app::Outcome EditUserPermissions();

  std::unique_ptr<data::ResultSet> rows_;  // the user's row, from the load to the save
  std::wstring strUserName;                // as loaded
  data::SecretText strPassword;            // as loaded, plain
  bool isPasswordKnown_ = true;            // unless what is stored cannot be read
  std::wstring strAdminName;
};

}  // namespace dialogs
