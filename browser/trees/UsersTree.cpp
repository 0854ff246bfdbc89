#include "browser/trees/UsersTree.h"

#include "browser/rules/TreeKeys.h"
#include "browser/trees/TreeImages.h"
#include "data/MSQLStatement.h"

namespace browser {
namespace {

using controls::NodeId;

// The folder of the user's own permissions, a sibling of the one given.
NodeId OwnPermissionsFolder(const controls::TreeNodes& nodes, NodeId folder) {
  return nodes.FindChild(nodes.Parent(folder), kUserPermissionsKey, 0);
}

void FillGroups(FolderFiller& filler, NodeId folder, std::int32_t userId) {
  filler.FillGroups(folder, data::SqlSelectUserGroups(userId));
}

void FillOwnPermissions(FolderFiller& filler, NodeId folder, std::int32_t userId) {
  filler.FillPermissions(folder, kUserPermissionKey, data::SqlSelectUserPermissionNames(userId));
}

std::vector<FolderKind> Folders(const TreeCaptions& captions, const controls::TreeView& tree) {
  const auto fillAllPermissions = [&tree](FolderFiller& filler, NodeId folder,
                                          std::int32_t userId) {
    filler.FillAllPermissions(folder, OwnPermissionsFolder(tree.Nodes(), folder),
                              data::SqlSelectInheritedPermissions(userId));
  };
  return {
      {kFirstFolder, L"EditMemberOfNode", kMemberOfKey, &captions.memberOfCaption, FillGroups},
      {kSecondFolder, L"EditUserPermissionsNode", kUserPermissionsKey,
       &captions.userPermissionsCaption, FillOwnPermissions},
      {kThirdFolder, L"EditAllPermissionsNode", kAllPermissionsKey, &captions.allPermissionsCaption,
       fillAllPermissions},
  };
}

AccountKind Kind(const TreeContext& context, const controls::TreeView& tree) {
  AccountKind kind;
  kind.procedure = L"UserNode";
  kind.key = kUserKey;
  kind.allAccounts = data::SqlSelectAllUsers;
  kind.oneAccount = data::SqlSelectUser;
  kind.image = kUserImage;
  kind.protectedImage = kProtectedUserImage;
  kind.IsProtected = [&context](std::int32_t id) { return context.accounts.IsProtectedUser(id); };
  // Names and full names of users are shown as they are stored.
  kind.NodeText = [](FolderFiller&, const AccountRow& row) {
    return AccountText(row.name, row.addition);
  };
  kind.folders = Folders(context.captions, tree);
  return kind;
}

}  // namespace

UsersTree::UsersTree(const TreeContext& context, controls::TreeView& tree, std::int16_t& userCount)
    : AccountTree(context, tree, userCount, Kind(context, tree)) {}

app::Outcome UsersTree::EditMemberOfNode(NodeId user) {
  return EditFolder(kFirstFolder, user);
}

app::Outcome UsersTree::EditUserPermissionsNode(NodeId user) {
  return EditFolder(kSecondFolder, user);
}

app::Outcome UsersTree::EditAllPermissionsNode(NodeId user) {
  return EditFolder(kThirdFolder, user);
}

app::Outcome UsersTree::EditUserNode() {
  return EditAccounts(L"EditUserNode", {kFirstFolder, kThirdFolder});
}

app::Outcome UsersTree::EditAllPermissionsUserNode() {
  return EditAccounts(L"EditAllPermissionsUserNode", {kThirdFolder});
}

}  // namespace browser
