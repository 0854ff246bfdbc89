#pragma once

#include "dialogs/GroupDialog.h"

namespace dialogs {

// Creates a group.
class frmNewGroup : public GroupDialog {
 public:
  explicit frmNewGroup(Exchange& exchange);

 protected:
  app::Outcome LoadDialog() override;
  app::HelpTopic Topic() const override { return app::kTopicNewGroup; }
  bool IsNameReserved(std::wstring_view name) override;
  app::Outcome UpdateTransaction() override;

 private:
  app::Outcome NewGroup();
  app::Outcome NewUserGroups();
  app::Outcome NewGroupPermissions();
};

}  // namespace dialogs
