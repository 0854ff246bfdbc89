#include "tests/support/walk/Walk.h"

#include "tests/support/keys/Keys.h"

namespace test_support {

std::wstring Walk::SelectedKey(int tree) const {
  const controls::NodeId node = SelectedNode(tree);
  return node == controls::kNoNode ? std::wstring() : Nodes(tree).Key(node);
}

Walk::KeySet Walk::KeysOfNodes(int tree, bool open) const {
  KeySet keys;
  const controls::TreeNodes& nodes = Nodes(tree);
  for (controls::NodeId node = nodes.NextIndex(controls::kNoNode); node != controls::kNoNode;
       node = nodes.NextIndex(node)) {
    if (nodes.HasChildren(node) && nodes.Expanded(node) == open) keys.insert(nodes.Key(node));
  }
  return keys;
}

std::vector<controls::CommandButton*> Walk::Buttons(int tree) {
  const auto all = [](auto& account, auto& first, auto& second) {
    return std::vector<controls::CommandButton*>{&account[0], &account[1], &account[2], &first[0],
                                                 &first[1],   &second[0],  &second[1]};
  };
  return tree == kUsersTree
             ? all(window.Users.cmdUser, window.Users.cmdMemberOf, window.Users.cmdUserPermission)
             : all(window.Groups.cmdGroup, window.Groups.cmdMember,
                   window.Groups.cmdGroupPermission);
}

}  // namespace test_support
