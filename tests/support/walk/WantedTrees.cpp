#include "tests/support/walk/WantedTrees.h"

#include "browser/trees/TreeImages.h"
#include "tests/support/keys/Keys.h"

namespace test_support {
namespace {

// How a folder of an account looks, and what the keys are of it and its leaves.
struct FolderLook {
  const wchar_t* caption;
  std::wstring (*key)(std::int32_t account);
  std::wstring (*leafKey)(std::int32_t account, std::int32_t leaf);
};

constexpr FolderLook kUserFolders[] = {
    {L"Membre du Groupe", Keys::GroupsOfUser, Keys::GroupOfUser},
    {L"Droits Utilisateur", Keys::OwnPermissions, Keys::OwnPermission},
    {L"Ensemble des Droits", Keys::AllPermissions, Keys::AnyPermission}};
constexpr FolderLook kGroupFolders[] = {
    {L"Membres", Keys::MembersOfGroup, Keys::MemberOfGroup},
    {L"Droits du Groupe", Keys::GroupPermissions, Keys::GroupPermission}};

std::wstring Line(const std::wstring& text, int image, const std::wstring& name = {}) {
  return text + L" | " + std::to_wstring(image) + L" | " + name;
}

std::wstring Shown(const std::wstring& text) {
  return text.find_first_not_of(L' ') == std::wstring::npos ? std::wstring() : text;
}

}  // namespace

std::wstring NodeText(const std::wstring& name, const std::wstring& addition) {
  return Shown(addition).empty() ? name : name + L" (" + addition + L")";
}

std::wstring WantedTrees::TextOf(int tree, std::int32_t id, const Tables& tables) const {
  const AccountRecord& record = (tree == kUsersTree ? tables.users : tables.groups).at(id);
  if (tree == kUsersTree) return NodeText(record.name, record.addition);
  return NodeText(tables.Display(104, record.name),
                  record.addition.empty() ? std::wstring() : tables.Display(105, record.addition));
}

int WantedTrees::ImageOf(int tree, std::int32_t id) const {
  if (tree == kUsersTree) {
    const bool kept = id == accounts_.adminUserId || id == accounts_.currentUserId;
    return kept ? browser::kProtectedUserImage : browser::kUserImage;
  }
  const bool kept = id == accounts_.administratorsGroupId || id == accounts_.everyoneGroupId;
  return kept ? browser::kProtectedGroupImage : browser::kGroupImage;
}

WantedTrees::Folder WantedTrees::Groups(std::int32_t user, const Tables& tables) const {
  Folder folder;
  for (const auto& [member, group] : tables.memberships) {
    if (member != user || !Tables::IsLiving(tables.groups, group)) continue;
    folder[group] = {TextOf(kGroupsTree, group, tables), ImageOf(kGroupsTree, group)};
  }
  return folder;
}

WantedTrees::Folder WantedTrees::Members(std::int32_t group, const Tables& tables) const {
  Folder folder;
  for (const auto& [member, of] : tables.memberships) {
    if (of != group || !Tables::IsLiving(tables.users, member)) continue;
    folder[member] = {TextOf(kUsersTree, member, tables), ImageOf(kUsersTree, member)};
  }
  return folder;
}

WantedTrees::Folder WantedTrees::Permissions(const Tables::Links& links, std::int32_t account,
                                             const Tables& tables) {
  Folder folder;
  for (const auto& [holder, permission] : links) {
    if (holder != account || !tables.permissions.contains(permission)) continue;
    folder[permission] = {tables.Display(101, tables.permissions.at(permission)),
                          browser::kPermissionImage};
  }
  return folder;
}

// Those that his living groups give, if he lives himself, and his own as his folder shows them.
WantedTrees::Folder WantedTrees::AllPermissions(std::int32_t user, const Folder& own,
                                                const Tables& tables) {
  Folder folder;
  for (const auto& [member, group] : tables.memberships) {
    if (member != user || !Tables::IsLiving(tables.groups, group)) continue;
    if (!Tables::IsLiving(tables.users, user)) continue;
    for (auto& [id, leaf] : Permissions(tables.groupPermissions, group, tables)) {
      leaf.image = browser::kInheritedPermissionImage;
      folder[id] = leaf;
    }
  }
  for (const auto& [id, leaf] : own) folder[id] = leaf;
  return folder;
}

void WantedTrees::Refresh(const Tables& tables) {
  for (const int tree : kTrees) {
    trees_[tree].clear();
    for (const auto& [id, record] : tree == kUsersTree ? tables.users : tables.groups) {
      if (!record.deleted) ReadAccount(tree, id, tables);
    }
  }
}

void WantedTrees::ReadAccount(int tree, std::int32_t id, const Tables& tables) {
  SetText(tree, id, TextOf(tree, id, tables),
          (tree == kUsersTree ? tables.users : tables.groups).at(id).name);
  for (int folder = 0; folder < (tree == kUsersTree ? 3 : 2); ++folder)
    ReadFolder(tree, id, folder, tables);
}

void WantedTrees::ReadFolder(int tree, std::int32_t account, int folder, const Tables& tables) {
  Folder(&folders)[3] = trees_[tree].at(account).folders;
  if (tree == kGroupsTree) {
    folders[folder] = folder == kMembersFolder
                          ? Members(account, tables)
                          : Permissions(tables.groupPermissions, account, tables);
  } else if (folder == kGroupsFolder) {
    folders[folder] = Groups(account, tables);
  } else {
    folders[folder] = folder == kOwnFolder ? Permissions(tables.userPermissions, account, tables)
                                           : AllPermissions(account, folders[kOwnFolder], tables);
  }
}

void WantedTrees::ReadLinksOfAll(int tree, const Tables& tables) {
  for (const auto& [id, account] : trees_[tree]) {
    ReadFolder(tree, id, kGroupsFolder, tables);
    if (tree == kUsersTree) ReadFolder(tree, id, kAllFolder, tables);
  }
}

void WantedTrees::ReadAllPermissions(const Tables& tables) {
  for (const auto& [id, account] : trees_[kUsersTree])
    ReadFolder(kUsersTree, id, kAllFolder, tables);
}

void WantedTrees::Remove(int tree, std::int32_t account) {
  trees_[tree].erase(account);
}

void WantedTrees::RemoveLeaf(int tree, std::int32_t account, int folder, std::int32_t id) {
  trees_[tree].at(account).folders[folder].erase(id);
}

void WantedTrees::SetText(int tree, std::int32_t account, const std::wstring& text,
                          const std::wstring& name) {
  trees_[tree][account].text = text;
  trees_[tree][account].name = name;
}

std::set<std::int32_t> WantedTrees::Accounts(int tree) const {
  std::set<std::int32_t> ids;
  for (const auto& [id, account] : trees_[tree]) ids.insert(id);
  return ids;
}

WantedTrees::Texts WantedTrees::Leaves(int tree, std::int32_t account, int folder) const {
  Texts texts;
  for (const auto& [id, leaf] : trees_[tree].at(account).folders[folder]) texts[id] = leaf.text;
  return texts;
}

TreeLines WantedTrees::Lines(int tree) const {
  TreeLines lines;
  lines[Keys::Root()] =
      Line(tree == kUsersTree ? L"Utilisateurs" : L"Groupes", browser::kFolderClosed);
  const int folders = tree == kUsersTree ? 3 : 2;
  for (const auto& [id, account] : trees_[tree]) {
    lines[Keys::Account(tree, id)] = Line(account.text, ImageOf(tree, id), account.name);
    for (int i = 0; i < folders; ++i) {
      const FolderLook& look = tree == kUsersTree ? kUserFolders[i] : kGroupFolders[i];
      lines[look.key(id)] = Line(look.caption, browser::kFolderClosed);
      for (const auto& [leafId, leaf] : account.folders[i]) {
        lines[look.leafKey(id, leafId)] = Line(leaf.text, leaf.image);
      }
    }
  }
  return lines;
}

}  // namespace test_support
