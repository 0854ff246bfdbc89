#include "browser/trees/FolderRebuild.h"

#include <algorithm>

#include "app/ErrorReport.h"
#include "browser/trees/TreeIndex.h"
#include "data/NodeKey.h"
#include "data/RunTimeError.h"

namespace browser {

int AllDone(std::initializer_list<int> statuses) {
  return std::all_of(statuses.begin(), statuses.end(),
                     [](int status) { return status == data::kDone; })
             ? data::kDone
             : data::kFailed;
}

FolderRebuild::FolderRebuild(const TreeContext& context, controls::TreeView (&trees)[2],
                             AccountTree& userTree, AccountTree& groupTree)
    : context_(context), trees_(trees), userTree_(userTree), groupTree_(groupTree) {}

int FolderRebuild::EditMemberOfNode(int userNode) {
  return EditFolder({L"EditMemberOfNode", kUsers, context_.captions.memberOfCaption, kFirstFolder},
                    userNode);
}

int FolderRebuild::EditUserPermissionsNode(int userNode) {
  return EditFolder(
      {L"EditUserPermissionsNode", kUsers, context_.captions.userPermissionsCaption, kSecondFolder},
      userNode);
}

int FolderRebuild::EditAllPermissionsNode(int userNode) {
  return EditFolder(
      {L"EditAllPermissionsNode", kUsers, context_.captions.allPermissionsCaption, kThirdFolder},
      userNode);
}

int FolderRebuild::EditMembersNode(int groupNode) {
  return EditFolder({L"EditMembersNode", kGroups, context_.captions.membersCaption, kFirstFolder},
                    groupNode);
}

int FolderRebuild::EditGroupPermissionsNode(int groupNode) {
  return EditFolder({L"EditGroupPermissionsNode", kGroups,
                     context_.captions.groupPermissionsCaption, kSecondFolder},
                    groupNode);
}

int FolderRebuild::EditGroupNode() {
  return EditAccounts(L"EditGroupNode", kGroups,
                      [this](int group) { return EditMembersNode(group); });
}

int FolderRebuild::EditUserNode() {
  return EditAccounts(L"EditUserNode", kUsers, [this](int user) {
    return EditMemberOfNode(user) == data::kDone ? EditAllPermissionsNode(user) : data::kFailed;
  });
}

int FolderRebuild::EditAllPermissionsUserNode() {
  return EditAccounts(L"EditAllPermissionsUserNode", kUsers,
                      [this](int user) { return EditAllPermissionsNode(user); });
}

void FolderRebuild::DelAllChild(int tree, int node) {
  try {
    const controls::TreeNodes& nodes = trees_[tree].Nodes();
    if (!nodes.Exists(node)) throw data::RunTimeError(data::kElementNotFound);
    trees_[tree].RemoveChildren(node);
  } catch (...) {
    app::ReportError(context_.global, L"DelAllChild");
  }
}

int FolderRebuild::EditFolder(const Folder& folder, int account) {
  try {
    controls::TreeView& tree = trees_[folder.tree];
    const controls::TreeNodes& nodes = tree.Nodes();
    if (!nodes.Exists(account)) throw data::RunTimeError(data::kElementNotFound);
    const std::wstring key = nodes.Key(account);
    const std::int32_t id = folder.tree == kUsers ? data::GetUserID(key) : data::GetGroupID(key);
    int status = data::kDone;
    const controls::TreeView::Update update(tree);
    for (int child = nodes.FirstChild(account); child != controls::kNoNode;
         child = nodes.Next(child)) {
      if (nodes.Text(child) == folder.caption) status = Refill(folder, id, child);
    }
    return status;
  } catch (...) {
    app::ReportError(context_.global, folder.procedure);
    return data::kFailed;
  }
}

int FolderRebuild::Refill(const Folder& folder, std::int32_t id, int node) {
  controls::TreeView& tree = trees_[folder.tree];
  const controls::TreeNodes& nodes = tree.Nodes();
  folderExpanded_ = nodes.HasChildren(node) ? nodes.Expanded(node) : 0;
  const int status = Builder(folder.tree).Build(id, folder.section, node);
  tree.SetExpanded(node, folderExpanded_ != 0);
  return status;
}

// One state of the database for all of them, and one look at the screen. What cannot be read for
// one account cannot be read for the next: the first failure, which has been reported, ends it.
int FolderRebuild::EditAccounts(const wchar_t* procedure, int tree, const EditAccount& edit) {
  try {
    data::ReadScope read(*context_.global.databaseConnection);
    const AccountTree::Together together(Builder(tree));
    const int status = WalkAccounts(tree, edit);
    read.Finish();
    return status;
  } catch (...) {
    app::ReportError(context_.global, procedure);
    return data::kFailed;
  }
}

int FolderRebuild::WalkAccounts(int tree, const EditAccount& edit) {
  const controls::TreeNodes& nodes = trees_[tree].Nodes();
  const int root = nodes.Root();
  const int total = nodes.Children(root);
  int done = 0;
  for (int account = nodes.FirstChild(root); account != controls::kNoNode;
       account = nodes.Next(account)) {
    if (edit(account) == data::kFailed) return data::kFailed;
    context_.Progress(++done, total);
  }
  return data::kDone;
}

}  // namespace browser
