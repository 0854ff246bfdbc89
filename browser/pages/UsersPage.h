#pragma once

#include "browser/pages/AccountPage.h"
#include "browser/trees/UsersTree.h"

namespace dialogs {
class frmNewUser;
}

namespace browser {

// The tab of the users: their tree, and the commands on users, their groups and their permissions.
class UsersPage : public AccountPage {
 public:
  UsersPage(controls::Form& form, const PageContext& context);

  int ReadingText() const override;
  int UpdatingText() const override;

  // The commands; the buttons call them, and so do the menu and the keys.
  void cmdUser_Click(int Index);            // AccountButton
  void cmdMemberOf_Click(int Index);        // LinkButton
  void cmdUserPermission_Click(int Index);  // LinkButton

  // Takes in what a node stands for, and sets the buttons for a node of its type.
  void TreeUserNode(controls::NodeId node);
  // Switches off the buttons that would harm a protected account.
  void CurentAndAdminUser(controls::NodeId node);

  // The page's controls by their own names.
  controls::Frame& fraUser = fraAccount;
  controls::CommandButton (&cmdUser)[3] = cmdAccount;
  controls::Frame& fraMemberOf = fraFirst;
  controls::CommandButton (&cmdMemberOf)[2] = cmdFirst;
  controls::Frame& fraUserPermission = fraSecond;
  controls::CommandButton (&cmdUserPermission)[2] = cmdSecond;

  // Whether the selected user may be taken out of "Administrators".
  bool IsRemoveAdministrator = true;

 protected:
  AccountTree& Accounts() override { return users_; }
  controls::NodeId OwnerOf(std::wstring_view tag, controls::NodeId node) const override;
  std::int32_t& SelectedID() override { return exchange_.UserID; }
  void TakeIn(controls::NodeId node) override { TreeUserNode(node); }
  void Protect(controls::NodeId node) override { CurentAndAdminUser(node); }
  app::Outcome Update(Change change) override;
  std::wstring OriginOf(controls::NodeId node) const override;
  std::optional<Account> AccountAt(controls::NodeId node) const override;
  const wchar_t* AccountProcedure() const override { return L"cmdUser_Click"; }

 private:
  bool EditUser(const Selection& at);
  bool DeleteUser(const Selection& at);
  void NewUser();
  void DuplicateUser();
  void ShowNewUser(dialogs::frmNewUser& dialog);
  void AssignGroups(const Selection& at);
  void AssignPermissions(const Selection& at);
  void RemoveMembership(const Selection& at);
  void RemovePermission(const Selection& at);
  void RebuildAllPermissions(const Selection& at);

  UsersTree users_;
};

}  // namespace browser
