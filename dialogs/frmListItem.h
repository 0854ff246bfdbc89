#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "controls/CommandButton.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "dialogs/EditingDialog.h"

namespace dialogs {

// Lists the groups or permissions that an owner, a user or a group, does not have yet. OK gives him
// those that were checked. It takes nothing away from him.
class frmListItem : public EditingDialog {
 public:
  enum Button : int { kCheckAll, kCheckNone };

  explicit frmListItem(Exchange& exchange);

  // Set by the caller, both from the string table: what is listed (groups or permissions), and what
  // it is to the owner (groups of a user, permissions of a user or of a group). The dialog refuses
  // any other texts, and two that do not go together, with error 5, and closes.
  std::wstring ListKind;
  std::wstring RelationName;
  std::int32_t OwnerID = -1;

  controls::Label lbl1;
  controls::Frame Frame1;
  controls::ListBox List1;
  controls::CommandButton cmdBtn[2];  // by Button
  controls::CommandButton cmdOK;
  controls::CommandButton cmdCancel;
  controls::CommandButton Command1;  // help

 protected:
  app::Outcome LoadDialog() override;
  app::HelpTopic Topic() const override;
  void cmdOK_Click() override;

 private:
  enum class Relation { kUserGroups, kUserPermissions, kGroupPermissions };

  void SettingControls();
  void SetLayout();
  void SetEvents();

  bool ListsGroups() const;
  Relation CheckedRelation() const;
  Relation RelationOf(const std::wstring& name) const;
  void AddCandidates();
  std::wstring OwnedStatement(Relation relation) const;
  // Takes what the owner has already, the statement's rows, out of the list.
  app::Outcome SelectedListItem(std::wstring_view statement);

  void List1_Click();
  void cmdBtn_Click(int Index);
  // How many items are checked; 0 after a failure.
  std::int16_t GetCountSelect();

  // Writes a link for each checked item.
  app::Outcome UpdateData(const std::wstring& relationName);
  std::wstring LinkStatement(Relation relation, std::int32_t itemData) const;
  void AddLink(Relation relation, std::int32_t itemData);
};

}  // namespace dialogs
