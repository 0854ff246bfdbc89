#pragma once

#include <cstdint>
#include <string>

namespace test_support {

// The two trees by their index, which is that of their tabs as well.
inline constexpr int kUsersTree = 0;
inline constexpr int kGroupsTree = 1;
inline constexpr int kTrees[] = {kUsersTree, kGroupsTree};
constexpr int OtherTree(int tree) {
  return tree == kUsersTree ? kGroupsTree : kUsersTree;
}

// The keys of the nodes of both trees, as the tests state them: written out here and not taken from
// the program, which composes them in its own way. Each function is named after what its node
// shows. The identifier of the account that owns the node comes first, that of what a leaf stands
// for second.
class Keys {
 public:
  // In either tree.
  static std::wstring Root() { return L"\\TRT "; }
  static std::wstring Account(int tree, std::int32_t id) {
    return tree == kUsersTree ? User(id) : Group(id);
  }

  // In the users tree: an account, its three folders, and what is in each of them.
  static std::wstring User(std::int32_t user) { return L"\\TUS \\U" + Number(user); }
  static std::wstring GroupsOfUser(std::int32_t user) {
    return L"\\TMO \\U" + Number(user) + L" \\G";
  }
  static std::wstring OwnPermissions(std::int32_t user) {
    return L"\\TUP \\U" + Number(user) + L" \\P";
  }
  static std::wstring AllPermissions(std::int32_t user) {
    return L"\\TAP \\U" + Number(user) + L" \\P";
  }
  static std::wstring GroupOfUser(std::int32_t user, std::int32_t group) {
    return L"\\TGU \\U" + Number(user) + L" \\G" + Number(group);
  }
  static std::wstring OwnPermission(std::int32_t user, std::int32_t permission) {
    return L"\\TPU \\U" + Number(user) + L" \\P" + Number(permission);
  }
  // One of all the permissions, own or through a group.
  static std::wstring AnyPermission(std::int32_t user, std::int32_t permission) {
    return L"\\TPA \\U" + Number(user) + L" \\P" + Number(permission);
  }

  // In the groups tree: the same with two folders.
  static std::wstring Group(std::int32_t group) { return L"\\TGR \\G" + Number(group); }
  static std::wstring MembersOfGroup(std::int32_t group) {
    return L"\\TMS \\G" + Number(group) + L" \\U";
  }
  static std::wstring GroupPermissions(std::int32_t group) {
    return L"\\TGP \\G" + Number(group) + L" \\P";
  }
  static std::wstring MemberOfGroup(std::int32_t group, std::int32_t user) {
    return L"\\TUG \\G" + Number(group) + L" \\U" + Number(user);
  }
  static std::wstring GroupPermission(std::int32_t group, std::int32_t permission) {
    return L"\\TPG \\G" + Number(group) + L" \\P" + Number(permission);
  }

 private:
  static std::wstring Number(std::int32_t id) { return std::to_wstring(id); }
};

}  // namespace test_support
