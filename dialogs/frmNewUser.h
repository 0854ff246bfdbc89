#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "app/StringIds.h"
#include "dialogs/UserDialog.h"

namespace dialogs {

// Creates a user. Set EveryoneGroupID before it is shown: the new user is a member of that group.
class frmNewUser : public UserDialog {
 public:
  explicit frmNewUser(Exchange& exchange);

  // What is checked from the start, besides the group that every new user is in.
  std::vector<std::int32_t> GroupIDs;
  std::vector<std::int32_t> PermissionIDs;

 protected:
  app::Outcome FillControls() override;
  int TitleId() const override { return app::kNewUserTitle; }
  app::HelpTopic Topic() const override { return app::kTopicNewUser; }
  bool IsAccepted() override;
  std::wstring_view Counted(std::wstring_view text) const override { return text; }
  app::Outcome UpdateTransaction() override;

 private:
  // The identifier of the group "Everyone", -1 when there is none.
  std::int32_t GetEveryOneGroup();
  void DefaultGroup(std::int32_t groupId);

  app::Outcome NewUser();
  void AddUserRow(data::ResultSet& rows);
  app::Outcome NewUserGroups();
  app::Outcome NewUserPermissions();

  std::int32_t NewUserID = -1;  // until one is drawn
};

}  // namespace dialogs
