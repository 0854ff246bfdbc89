#pragma once

#include <memory>

#include "dialogs/GroupDialog.h"

namespace dialogs {

// Edits the group whose identifier the caller has put into GroupID.
class frmEditGroup : public GroupDialog {
 public:
  explicit frmEditGroup(Exchange& exchange);

  void Form_Load() override;
  void Form_Unload(bool& cancel) override;

 protected:
  app::HelpTopic Topic() const override { return app::kTopicEditGroup; }
  // A reserved group is edited under its name, which cannot be changed then.
  bool IsNameReserved(std::wstring_view) override { return false; }
  data::ExitStatus UpdateTransaction() override;

 private:
  data::ExitStatus Fill();
  // False when the group has no row any more.
  bool ReadGroup();
  data::ExitStatus SelectListItem(std::int32_t groupId, int Index);
  void ProtectGroup();
  bool EditGroup();
  bool RewriteRow();
  data::ExitStatus EditGroupUser();
  data::ExitStatus EditGroupPermissions();

  // The group's row, open from the load to the save.
  std::unique_ptr<data::ResultSet> group_;
};

}  // namespace dialogs
