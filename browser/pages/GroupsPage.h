#pragma once

#include "browser/pages/AccountPage.h"
#include "browser/trees/GroupsTree.h"

namespace browser {

// The tab of the groups: their tree, and the commands on groups, their members and their
// permissions.
class GroupsPage : public AccountPage {
 public:
  GroupsPage(controls::Form& form, const PageContext& context);

  int ReadingText() const override;
  int UpdatingText() const override;

  // The commands; the buttons call them, and so do the menu and the keys.
  void cmdGroup_Click(int Index);            // AccountButton
  void cmdMember_Click(int Index);           // LinkButton
  void cmdGroupPermission_Click(int Index);  // LinkButton

  // Takes in what a node stands for, and sets the buttons for a node of its type.
  void TreeGroupNode(controls::NodeId node);
  // Switches off the buttons that would harm a protected account.
  void AdminAndEveryoneGroup(controls::NodeId node);

  // The page's controls by their own names.
  controls::Frame& fraGroup = fraAccount;
  controls::CommandButton (&cmdGroup)[3] = cmdAccount;
  controls::Frame& fraMember = fraFirst;
  controls::CommandButton (&cmdMember)[2] = cmdFirst;
  controls::Frame& fraGroupPermission = fraSecond;
  controls::CommandButton (&cmdGroupPermission)[2] = cmdSecond;

  // Whether "Admin" may be taken out of the selected group.
  bool IsRemoveAdmin = true;

 protected:
  AccountTree& Accounts() override { return groups_; }
  controls::NodeId OwnerOf(std::wstring_view tag, controls::NodeId node) const override;
  std::int32_t& SelectedID() override { return exchange_.GroupID; }
  void TakeIn(controls::NodeId node) override { TreeGroupNode(node); }
  void Protect(controls::NodeId node) override { AdminAndEveryoneGroup(node); }
  app::Outcome Update(Change change) override;
  std::optional<Account> AccountAt(controls::NodeId node) const override;
  const wchar_t* AccountProcedure() const override { return L"cmdGroup_Click"; }

 private:
  bool EditGroup(const Selection& at);
  bool DeleteGroup(const Selection& at);
  void NewGroup();
  void AssignMembers(const Selection& at);
  void AssignPermissions(const Selection& at);
  void RemoveMember(const Selection& at);
  void RemovePermission(const Selection& at);

  GroupsTree groups_;
};

}  // namespace browser
