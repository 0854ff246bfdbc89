#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>

#include "browser/trees/AccountTree.h"
#include "browser/trees/TreeContext.h"
#include "controls/TreeView.h"

namespace browser {

// Brings single folders of the two trees up to date with the database after a change. Every
// operation takes the node of the account, keeps what is expanded and selected, reports its errors
// itself and returns data::kDone or data::kFailed; a folder that could not be read keeps what it
// showed.
class FolderRebuild {
 public:
  // All of it outlives the object.
  FolderRebuild(const TreeContext& context, controls::TreeView (&trees)[2], AccountTree& userTree,
                AccountTree& groupTree);

  int EditMemberOfNode(int userNode);
  int EditUserPermissionsNode(int userNode);
  int EditAllPermissionsNode(int userNode);
  int EditMembersNode(int groupNode);
  int EditGroupPermissionsNode(int groupNode);

  // The members folder of every group.
  int EditGroupNode();
  // The groups folder and the folder of all permissions of every user.
  int EditUserNode();
  // The folder of all permissions of every user.
  int EditAllPermissionsUserNode();

  // Removes every child of a node. tree: 0 users, 1 groups.
  void DelAllChild(int tree, int node);

 private:
  // What tells the rebuild of one kind of folder from that of another.
  struct Folder {
    const wchar_t* procedure;
    int tree;
    const std::wstring& caption;
    Section section;
  };
  using EditAccount = std::function<int(int account)>;

  AccountTree& Builder(int tree) { return tree == 0 ? userTree_ : groupTree_; }
  int EditFolder(const Folder& folder, int account);
  int Refill(const Folder& folder, std::int32_t id, int node);
  int EditAccounts(const wchar_t* procedure, int tree, const EditAccount& edit);
  int WalkAccounts(int tree, const EditAccount& edit);

  const TreeContext& context_;
  controls::TreeView (&trees_)[2];
  AccountTree& userTree_;
  AccountTree& groupTree_;
  std::int16_t folderExpanded_ = 0;  // of the folder being rebuilt
};

// data::kDone when each of them is.
int AllDone(std::initializer_list<int> statuses);

}  // namespace browser
