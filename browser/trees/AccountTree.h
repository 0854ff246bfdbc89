#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "app/ReportedLater.h"
#include "browser/trees/AccountRows.h"
#include "browser/trees/FolderFiller.h"
#include "browser/trees/TreeContext.h"
#include "controls/TreeView.h"

namespace browser {

// Which of an account's folders is meant.
enum Section : int {
  kFirstFolder = 21,   // groups of a user, members of a group
  kSecondFolder = 22,  // own permissions of a user, permissions of a group
  kThirdFolder = 23,   // all permissions of a user
};

// A folder that every account of a tree has.
struct FolderKind {
  Section section;
  const wchar_t* procedure;  // the name under which errors of its rebuild are reported
  controls::KeyForm key;
  const std::wstring* caption;  // set before the first account is added
  // Makes the folder's leaves those of the account, as the database has them.
  std::function<void(FolderFiller& filler, controls::NodeId folder, std::int32_t accountId)> Fill;
};

// What tells the users tree from the groups tree.
struct AccountKind {
  const wchar_t* procedure;  // the name under which errors of the builder are reported
  controls::KeyForm key;
  std::wstring (*allAccounts)();
  std::wstring (*oneAccount)(std::int32_t id);
  int image;
  int protectedImage;
  std::function<bool(std::int32_t id)> IsProtected;
  std::function<std::wstring(FolderFiller& filler, const AccountRow& row)> NodeText;
  std::vector<FolderKind> folders;  // in the order in which they are filled
};

// Builds one of the two trees and keeps it up to date: under the root a node for each account,
// under each account its folders, in each folder its leaves. What is rebuilt keeps its selection
// and, unless it was empty, whether it is open; a folder that could not be read keeps what it
// showed.
class AccountTree {
 public:
  AccountTree(const AccountTree&) = delete;
  AccountTree& operator=(const AccountTree&) = delete;

  // Adds every account below the root, and counts them. For use inside a reading transaction: the
  // error is the caller's to report.
  app::Outcome BuildAll(app::KeptError& error);
  // Adds the account of this identifier alone, unless it has a node or the database does not know
  // it. Reports its errors.
  app::Outcome BuildOne(std::int32_t id);
  // The node of the account; kNoNode when it has none.
  controls::NodeId Find(std::int32_t id) const;

 protected:
  // context, tree and count outlive it. count is that of the tree's accounts.
  AccountTree(const TreeContext& context, controls::TreeView& tree, std::int16_t& count,
              AccountKind kind);
  ~AccountTree() = default;

  // Rebuilds one folder of one account, and reports its errors.
  app::Outcome EditFolder(Section section, controls::NodeId account);
  // Rebuilds these folders of every account, from one state of the database and with one look at
  // the screen. The first failure ends it; it is reported under the name given, or that of the
  // builder.
  app::Outcome EditAccounts(const wchar_t* procedure, std::initializer_list<Section> sections);

 private:
  void AddAll();
  void AddOne(std::int32_t id);
  void Add(FolderFiller& filler, const AccountRow& row);
  controls::NodeId AddFolder(controls::NodeId account, const FolderKind& kind);
  const FolderKind& Folder(Section section) const;
  app::Outcome Rebuild(FolderFiller& filler, const FolderKind& kind, controls::NodeId account,
                       app::KeptError& error);
  app::Outcome RebuildAll(FolderFiller& filler, std::initializer_list<Section> sections,
                          app::KeptError& error);

  const TreeContext& context_;
  controls::TreeView& tree_;
  std::int16_t& count_;
  const AccountKind kind_;
};

// kDone when each of them is.
app::Outcome AllDone(std::initializer_list<app::Outcome> outcomes);

}  // namespace browser
