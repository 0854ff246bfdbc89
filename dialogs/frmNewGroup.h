#pragma once

#include "dialogs/GroupDialog.h"

namespace dialogs {

// Creates a group.
class frmNewGroup : public GroupDialog {
 public:
  explicit frmNewGroup(Exchange& exchange);

  void Form_Load() override;

 protected:
  app::HelpTopic Topic() const override { return app::kTopicNewGroup; }
  bool IsNameReserved(std::wstring_view name) override;
  // The caller ignores the status, which is data::kDone in every case; AddNode tells.
  data::ExitStatus UpdateTransaction() override;

 private:
  bool NewGroup();
  data::ExitStatus NewUserGroups();
  data::ExitStatus NewGroupPermissions();
};

}  // namespace dialogs
