#pragma once

#include <memory>
#include <string>

#include "dialogs/GroupDialog.h"

namespace dialogs {

// Edits the group whose identifier the caller has put into GroupID.
class frmEditGroup : public GroupDialog {
 public:
  explicit frmEditGroup(Exchange& exchange);

  void Form_Unload(bool& cancel) override;

 protected:
  app::Outcome LoadDialog() override;
  app::HelpTopic Topic() const override { return app::kTopicEditGroup; }
  // A reserved group is edited under its name, which cannot be changed then.
  bool IsNameReserved(std::wstring_view) override { return false; }
  bool MaySave() const override;
  app::Outcome UpdateTransaction() override;

 private:
  // False when the group has no row any more.
  bool ReadGroup();
  app::Outcome FillLists();
  app::Outcome SelectListItem(std::int32_t groupId, List index);
  void ProtectGroup();
  app::Outcome EditGroup();
  bool RewriteRow();
  app::Outcome EditGroupUser();
  app::Outcome EditGroupPermissions();

  std::wstring loadedName_;  // as stored
  // The group's row, open from the load to the save.
  std::unique_ptr<data::ResultSet> group_;
};

}  // namespace dialogs
