#include "browser/trees/TreeLookup.h"

#include "app/ErrorReport.h"
#include "browser/trees/TreeIndex.h"
#include "data/NodeKey.h"
#include "data/RunTimeError.h"
#include "data/Text.h"

namespace browser {
namespace {

// Where a tag has no place in a table.
constexpr int kNowhere = -1;

// How many levels above a node of the users tree its user stands.
int LevelsToUser(std::wstring_view tag) {
  if (tag == L"US") return 0;
  if (tag == L"MO" || tag == L"UP" || tag == L"AP") return 1;
  if (tag == L"GU" || tag == L"PU" || tag == L"PA") return 2;
  return kNowhere;
}

// How many levels above a node of the groups tree its group stands.
int LevelsToGroup(std::wstring_view tag) {
  if (tag == L"GR") return 0;
  if (tag == L"MS" || tag == L"GP") return 1;
  if (tag == L"UG" || tag == L"PG") return 2;
  return kNowhere;
}

// Compares from the leaf up and composes nothing: every node of a tree may be asked.
bool HasPath(const controls::TreeNodes& nodes, int node, std::wstring_view path) {
  while (path.ends_with(nodes.Text(node))) {
    path.remove_suffix(nodes.Text(node).size());
    node = nodes.Parent(node);
    if (node == controls::kNoNode) return path.empty();
    if (!path.ends_with(L'\\')) return false;
    path.remove_suffix(1);
  }
  return false;
}

// Runs a lookup; an error is reported under the procedure's name and the failure value given.
template <typename Result, typename Lookup>
Result Reported(const app::mGlobal& global, const wchar_t* procedure, Result failure,
                Lookup lookup) {
  try {
    return lookup();
  } catch (...) {
    app::ReportError(global, procedure);
    return failure;
  }
}

}  // namespace

TreeLookup::TreeLookup(const app::mGlobal& global, const controls::TreeView& usersTree,
                       const controls::TreeView& groupsTree)
    : global_(global), trees_{&usersTree, &groupsTree} {}

int TreeLookup::Above(int tree, int node, int levels) const {
  const controls::TreeNodes& nodes = Nodes(tree);
  if (!nodes.Exists(node)) throw data::RunTimeError(data::kElementNotFound);
  for (; levels > 0 && node != controls::kNoNode; --levels) node = nodes.Parent(node);
  if (node == controls::kNoNode) throw data::RunTimeError(data::kElementNotFound);
  return node;
}

std::wstring TreeLookup::TextAbove(int tree, int node, int levels) const {
  return Nodes(tree).Text(Above(tree, node, levels));
}

std::wstring TreeLookup::IndexAbove(int tree, int node, int levels) const {
  return data::Decimal(levels == kNowhere ? kNowhere : Above(tree, node, levels));
}

std::wstring TreeLookup::GetTypeNode(std::wstring_view key) const {
  return Reported(global_, L"GetTypeNode", std::wstring(), [&] { return data::GetTypeNode(key); });
}

std::int32_t TreeLookup::GetPermID(std::wstring_view key) const {
  return Reported(global_, L"GetPermID", std::int32_t{-1}, [&] { return data::GetPermID(key); });
}

std::wstring TreeLookup::GetIndexUserNode(std::wstring_view tag, int node) const {
  return Reported(global_, L"GetIndexUserNode", std::wstring(L"-1"),
                  [&] { return IndexAbove(kUsers, node, LevelsToUser(tag)); });
}

std::wstring TreeLookup::GetIndexGroupNode(std::wstring_view tag, int node) const {
  return Reported(global_, L"GetIndexGroupNode", std::wstring(L"-1"),
                  [&] { return IndexAbove(kGroups, node, LevelsToGroup(tag)); });
}

// The folder of all permissions and what is in it give no name, though a user owns them.
std::wstring TreeLookup::GetUserName(std::wstring_view tag, int node) const {
  return Reported(global_, L"GetUserName", std::wstring(), [&] {
    if (tag == L"UG") return TextAbove(kGroups, node, 0);
    if (tag == L"AP" || tag == L"PA") return std::wstring();
    const int levels = LevelsToUser(tag);
    return levels == kNowhere ? std::wstring() : TextAbove(kUsers, node, levels);
  });
}

std::wstring TreeLookup::GetGroupName(std::wstring_view tag, int node) const {
  return Reported(global_, L"GetGroupName", std::wstring(), [&] {
    if (tag == L"GU") return TextAbove(kUsers, node, 0);
    const int levels = LevelsToGroup(tag);
    return levels == kNowhere ? std::wstring() : TextAbove(kGroups, node, levels);
  });
}

std::wstring TreeLookup::GetPermName(std::wstring_view tag, int node) const {
  return Reported(global_, L"GetPermName", std::wstring(), [&] {
    if (tag == L"PU") return TextAbove(kUsers, node, 0);
    if (tag == L"PG") return TextAbove(kGroups, node, 0);
    return std::wstring();
  });
}

int TreeLookup::GetIndexNode(int tree, std::wstring_view path) const {
  return Reported(global_, L"GetIndexNode", -1, [&] {
    const controls::TreeNodes& nodes = Nodes(tree);
    int node = nodes.NextIndex(0);
    while (node != controls::kNoNode && !HasPath(nodes, node, path)) node = nodes.NextIndex(node);
    return node;
  });
}

int TreeLookup::GetIndParentNode(int tree, int node, std::wstring_view caption1,
                                 std::wstring_view caption2) const {
  return Reported(global_, L"GetIndParentNode", -1, [&] {
    const controls::TreeNodes& nodes = Nodes(tree);
    const int root = nodes.Root();
    if (Above(tree, node, 0) == root) return -1;
    const int parent = nodes.Parent(node);
    if (parent == root) return node;
    const std::wstring& text = nodes.Text(node);
    if (text == caption1 || text == caption2) return parent;
    const std::wstring& above = nodes.Text(parent);
    if (above == caption1 && above == caption2) return -1;
    return nodes.Parent(parent);
  });
}

}  // namespace browser
