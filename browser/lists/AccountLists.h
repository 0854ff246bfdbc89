#pragma once

#include <cstdint>

#include "app/mGlobal.h"
#include "browser/lists/ListSource.h"
#include "controls/TreeNodes.h"

namespace browser {

// What the lists read: both trees as they are. Nothing is asked of the database.
struct ListContext {
  const app::mGlobal& global;
  const controls::TreeNodes& users;
  const controls::TreeNodes& groups;
  // False where a read that failed has left something out, of which each list then warns.
  bool isComplete = true;
};

// The users who have a permission, and where each has it from. leaf is any node of either tree that
// stands for it.
ListSource HoldersList(const ListContext& context, const controls::TreeNodes& nodes,
                       controls::NodeId leaf);

// The users in a group, and what each has that the group does not give: how much, and the first
// few names.
ListSource MembersList(const ListContext& context, std::int32_t groupId);

// All users but one, to compare him with.
ListSource UsersToCompare(const ListContext& context, controls::NodeId user);

// The permissions of two users side by side, each with its origin: those that one of them has
// alone, then those that come from elsewhere, then the others.
ListSource ComparisonList(const ListContext& context, controls::NodeId one, controls::NodeId other);

}  // namespace browser
