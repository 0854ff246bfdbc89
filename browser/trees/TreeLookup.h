#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/mGlobal.h"
#include "controls/TreeView.h"

namespace browser {

// Reads what the nodes of the two trees stand for. A tag is the two characters of a key that name
// a node's type. Each operation reports its errors under its own name and then answers as if it had
// found nothing; a node that does not live is error 35601.
class TreeLookup {
 public:
  // The trees outlive it.
  TreeLookup(const app::mGlobal& global, const controls::TreeView& usersTree,
             const controls::TreeView& groupsTree);

  // The tag in a key; empty when it has none.
  std::wstring GetTypeNode(std::wstring_view key) const;
  // The permission of a key; -1 when it names none.
  std::int32_t GetPermID(std::wstring_view key) const;

  // The index of the account node that the node belongs to, as text; "-1" when there is none.
  std::wstring GetIndexUserNode(std::wstring_view tag, int node) const;
  std::wstring GetIndexGroupNode(std::wstring_view tag, int node) const;

  // The name that the node shows or belongs to; empty for the tags that name none. The tag also
  // tells the tree.
  std::wstring GetUserName(std::wstring_view tag, int node) const;
  std::wstring GetGroupName(std::wstring_view tag, int node) const;
  std::wstring GetPermName(std::wstring_view tag, int node) const;

  // The lowest index of a node with exactly this full path; -1 when there is none. tree: 0 users,
  // 1 groups.
  int GetIndexNode(int tree, std::wstring_view path) const;
  // The index of the account node above a node, found by the captions of folders; -1 for the root.
  int GetIndParentNode(int tree, int node, std::wstring_view caption1,
                       std::wstring_view caption2) const;

 private:
  const controls::TreeNodes& Nodes(int tree) const { return trees_[tree]->Nodes(); }
  // The node that many levels up; the node itself for 0.
  int Above(int tree, int node, int levels) const;
  std::wstring TextAbove(int tree, int node, int levels) const;
  std::wstring IndexAbove(int tree, int node, int levels) const;

  const app::mGlobal& global_;
  const controls::TreeView* trees_[2];
};

}  // namespace browser
