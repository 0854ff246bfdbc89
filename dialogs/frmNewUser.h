#pragma once

#include <cstdint>
#include <string_view>

#include "dialogs/UserDialog.h"

namespace dialogs {

// Creates a user. Set EveryoneGroupID before it is shown: the new user is a member of that group.
class frmNewUser : public UserDialog {
 public:
  explicit frmNewUser(Exchange& exchange);

  void Form_Load() override;

 protected:
  app::HelpTopic Topic() const override { return app::kTopicNewUser; }
  bool IsAccepted() override;
  std::wstring_view Counted(std::wstring_view text) const override { return text; }
  data::ExitStatus UpdateTransaction() override;

 private:
  // The identifier of the group "Everyone", -1 when there is none.
  std::int32_t GetEveryOneGroup();
  data::ExitStatus DefaultGroup(std::int32_t groupId);

  bool NewUser();
  void AddUserRow(data::ResultSet& rows);
  data::ExitStatus NewUserGroups();
  data::ExitStatus NewUserPermissions();

  std::int32_t NewUserID = -1;  // until one is drawn
};

}  // namespace dialogs
