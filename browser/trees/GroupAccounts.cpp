#include "browser/rules/TreeKeys.h"
#include "browser/trees/AccountTree.h"
#include "browser/trees/TreeImages.h"
#include "data/MSQLStatement.h"

namespace browser {
namespace {

void FillMembers(FolderFiller& filler, int folder, std::int32_t groupId) {
  filler.FillUsers(folder, data::SqlSelectGroupUsers(groupId));
}

void FillPermissions(FolderFiller& filler, int folder, std::int32_t groupId) {
  filler.FillPermissions(folder, kGroupPermissionKey, data::SqlSelectGroupPermissionNames(groupId));
}

}  // namespace

AccountKind GroupAccounts(const TreeContext& context) {
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
  const TreeCaptions& captions = context.captions;
  kind.folders = {
      {kFirstFolder, kMembersKey, &captions.membersCaption, FillMembers},
      {kSecondFolder, kGroupPermissionsKey, &captions.groupPermissionsCaption, FillPermissions},
  };
  return kind;
}

}  // namespace browser
