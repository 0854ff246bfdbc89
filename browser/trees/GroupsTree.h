#pragma once

#include "browser/trees/AccountTree.h"

namespace browser {

// The tree of the groups. The rebuilds take the node of a group; they report their errors.
class GroupsTree : public AccountTree {
 public:
  // All of it outlives it.
  GroupsTree(const TreeContext& context, controls::TreeView& tree, std::int16_t& groupCount);

  app::Outcome EditMembersNode(controls::NodeId group);
  app::Outcome EditGroupPermissionsNode(controls::NodeId group);

  // The members folder of every group.
  app::Outcome EditGroupNode();
};

}  // namespace browser
