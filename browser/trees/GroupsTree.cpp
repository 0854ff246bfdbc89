#include "browser/trees/GroupsTree.h"

#include "browser/rules/TreeKeys.h"
#include "browser/trees/TreeImages.h"
#include "data/MSQLStatement.h"

namespace browser {
namespace {

using controls::NodeId;

void FillMembers(FolderFiller& filler, NodeId folder, std::int32_t groupId) {
  filler.FillUsers(folder, data::SqlSelectGroupUsers(groupId));
}

void FillPermissions(FolderFiller& filler, NodeId folder, std::int32_t groupId) {
  filler.FillPermissions(folder, kGroupPermissionKey, data::SqlSelectGroupPermissionNames(groupId));
}

std::vector<FolderKind> Folders(const TreeCaptions& captions) {
  return {
      {kFirstFolder, L"EditMembersNode", kMembersKey, &captions.membersCaption, FillMembers},
      {kSecondFolder, L"EditGroupPermissionsNode", kGroupPermissionsKey,
       &captions.groupPermissionsCaption, FillPermissions},
  };
}

AccountKind Kind(const TreeContext& context) {
  AccountKind kind;
  kind.procedure = L"GroupNode";
  kind.key = kGroupKey;
  kind.allAccounts = data::SqlSelectAllGroups;
  kind.oneAccount = data::SqlSelectGroup;
  kind.image = kGroupImage;
  kind.protectedImage = kProtectedGroupImage;
  kind.IsProtected = [&context](std::int32_t id) { return context.accounts.IsProtectedGroup(id); };
  kind.NodeText = [](FolderFiller& filler, const AccountRow& row) {
    return filler.GroupText(row.name, row.addition);
  };
  kind.folders = Folders(context.captions);
  return kind;
}

}  // namespace

GroupsTree::GroupsTree(const TreeContext& context, controls::TreeView& tree,
                       std::int16_t& groupCount)
    : AccountTree(context, tree, groupCount, Kind(context)) {}

app::Outcome GroupsTree::EditMembersNode(NodeId group) {
  return EditFolder(kFirstFolder, group);
}

app::Outcome GroupsTree::EditGroupPermissionsNode(NodeId group) {
  return EditFolder(kSecondFolder, group);
}

app::Outcome GroupsTree::EditGroupNode() {
  return EditAccounts(L"EditGroupNode", {kFirstFolder});
}

}  // namespace browser
