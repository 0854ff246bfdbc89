#pragma once

#include "browser/trees/AccountTree.h"

namespace browser {

// The tree of the users. The rebuilds take the node of a user; they report their errors.
class UsersTree : public AccountTree {
 public:
  // All of it outlives it.
  UsersTree(const TreeContext& context, controls::TreeView& tree, std::int16_t& userCount);

  app::Outcome EditMemberOfNode(controls::NodeId user);
  app::Outcome EditUserPermissionsNode(controls::NodeId user);
  app::Outcome EditAllPermissionsNode(controls::NodeId user);

  // The groups folder and the folder of all permissions of every user.
  app::Outcome EditUserNode();
  // The folder of all permissions of every user.
  app::Outcome EditAllPermissionsUserNode();
};

}  // namespace browser
