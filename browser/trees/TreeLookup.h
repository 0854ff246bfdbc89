#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/mGlobal.h"
#include "controls/TreeView.h"

namespace browser {

// Reads what the nodes of a tree stand for. A tag is the two characters of a key that name a node's
// type. Each operation reports its errors under its own name and then answers as if it had found
// nothing; a node that does not live is error 35601.
class TreeLookup {
 public:
  // Both outlive it.
  TreeLookup(const app::mGlobal& global, const controls::TreeView& tree);

  // The tag in a key; empty when it has none.
  std::wstring GetTypeNode(std::wstring_view key) const;
  // The permission of a key; -1 when it names none.
  std::int32_t GetPermID(std::wstring_view key) const;

  // The node of the user, or the group, that the node belongs to; kNoNode when there is none.
  controls::NodeId GetIndexUserNode(std::wstring_view tag, controls::NodeId node) const;
  controls::NodeId GetIndexGroupNode(std::wstring_view tag, controls::NodeId node) const;

  // The name that the node shows or belongs to; empty for the tags that name none.
  std::wstring GetUserName(std::wstring_view tag, controls::NodeId node) const;
  std::wstring GetGroupName(std::wstring_view tag, controls::NodeId node) const;
  std::wstring GetPermName(std::wstring_view tag, controls::NodeId node) const;

 private:
  // The node that many levels up; the node itself for 0.
  controls::NodeId Above(controls::NodeId node, int levels) const;
  std::wstring TextAbove(controls::NodeId node, int levels) const;

  const app::mGlobal& global_;
  const controls::TreeView& tree_;
};

}  // namespace browser
