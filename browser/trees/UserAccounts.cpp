#include "browser/rules/TreeKeys.h"
#include "browser/trees/AccountTree.h"
#include "browser/trees/TreeImages.h"
#include "data/MSQLStatement.h"

namespace browser {
namespace {

// The folder of the user's own permissions, a sibling of the one given.
int OwnPermissionsFolder(const controls::TreeNodes& nodes, int folder) {
  int sibling = nodes.FirstSibling(folder);
  while (nodes.FormOf(sibling).prefix != kUserPermissionsKey.prefix) sibling = nodes.Next(sibling);
  return sibling;
}

void FillGroups(FolderFiller& filler, int folder, std::int32_t userId) {
  filler.FillGroups(folder, data::SqlSelectUserGroups(userId));
}

void FillOwnPermissions(FolderFiller& filler, int folder, std::int32_t userId) {
  filler.FillPermissions(folder, kUserPermissionKey, data::SqlSelectUserPermissionNames(userId));
}

}  // namespace

AccountKind UserAccounts(const TreeContext& context, controls::TreeView& tree) {
  const auto fillAllPermissions = [&tree](FolderFiller& filler, int folder, std::int32_t userId) {
    filler.FillAllPermissions(folder, OwnPermissionsFolder(tree.Nodes(), folder),
                              data::SqlSelectInheritedPermissions(userId));
  };
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
  const TreeCaptions& captions = context.captions;
  kind.folders = {
      {kFirstFolder, kMemberOfKey, &captions.memberOfCaption, FillGroups},
      {kSecondFolder, kUserPermissionsKey, &captions.userPermissionsCaption, FillOwnPermissions},
      {kThirdFolder, kAllPermissionsKey, &captions.allPermissionsCaption, fillAllPermissions},
  };
  return kind;
}

}  // namespace browser
