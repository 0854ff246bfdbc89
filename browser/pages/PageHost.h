#pragma once

#include <string>

#include "browser/rules/Account.h"

namespace browser {

class AccountPage;

// What a command has changed that other pages show as well.
enum class Change {
  kAccounts,          // an account, or who is in which group
  kGroupPermissions,  // what a group gives to its members
};

// What a page lacks after a read that failed.
enum class Missing {
  kLeaves,    // what stands in folders
  kAccounts,  // accounts, so that nobody can say any more which names are taken
};

// What a page knows of the window that it stands in.
class PageHost {
 public:
  // A command on the page has changed something: the other pages are to show it too.
  virtual void BringOthersInStep(const AccountPage& page, Change change) = 0;
  // What a command has done, or why it is off, empty for nothing; said as long as the same node
  // stays selected.
  virtual void ShowDone(const std::wstring& text) = 0;
  // What a page has to say about its selection may have changed.
  virtual void ShowStatus() = 0;
  // An error, already reported, has kept a page from showing all that it should.
  virtual void TellMissing(Missing what) = 0;
  // Whether the account has a node; one that was deleted may still be listed elsewhere.
  virtual bool Has(const Account& account) const = 0;
  // Shows an account and selects it, and remembers the node that was selected until now. Does
  // nothing where the account has no node.
  virtual void GoTo(const Account& account) = 0;
  // Writes who may do what to a file, where the user wants it.
  virtual void ExportRights() = 0;
  // Goes back to where the user was before; false where there is nowhere to go.
  virtual bool GoBack() = 0;
  virtual bool CanGoBack() const = 0;
  // False from a failed read of the accounts until a refresh succeeds.
  virtual bool AllAccountsKnown() const = 0;
  // The same of any failed read.
  virtual bool AllLeavesKnown() const = 0;

 protected:
  ~PageHost() = default;
};

}  // namespace browser
