#include "browser/trees/TreeLookup.h"

#include "app/Reported.h"
#include "data/NodeKey.h"
#include "data/RunTimeError.h"

namespace browser {
namespace {

using controls::NodeId;

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

// How many levels above a node the text stands that names its user. The folder of all permissions
// and what is in it give no name, though a user owns them.
int LevelsToUserName(std::wstring_view tag) {
  if (tag == L"UG") return 0;
  return tag == L"AP" || tag == L"PA" ? kNowhere : LevelsToUser(tag);
}

int LevelsToGroupName(std::wstring_view tag) {
  return tag == L"GU" ? 0 : LevelsToGroup(tag);
}

}  // namespace

TreeLookup::TreeLookup(const app::mGlobal& global, const controls::TreeView& tree)
    : global_(global), tree_(tree) {}

NodeId TreeLookup::Above(NodeId node, int levels) const {
  if (levels == kNowhere) return controls::kNoNode;
  const controls::TreeNodes& nodes = tree_.Nodes();
  if (!nodes.Exists(node)) throw data::RunTimeError(data::kElementNotFound);
  for (; levels > 0 && node != controls::kNoNode; --levels) node = nodes.Parent(node);
  if (node == controls::kNoNode) throw data::RunTimeError(data::kElementNotFound);
  return node;
}

std::wstring TreeLookup::TextAbove(NodeId node, int levels) const {
  const NodeId above = Above(node, levels);
  return above == controls::kNoNode ? std::wstring() : tree_.Nodes().Text(above);
}

std::wstring TreeLookup::GetTypeNode(std::wstring_view key) const {
  return app::ReportedOr(global_, L"GetTypeNode", std::wstring(),
                         [&] { return data::GetTypeNode(key); });
}

std::int32_t TreeLookup::GetPermID(std::wstring_view key) const {
  return app::ReportedOr(global_, L"GetPermID", std::int32_t{-1},
                         [&] { return data::GetPermID(key); });
}

NodeId TreeLookup::GetIndexUserNode(std::wstring_view tag, NodeId node) const {
  return app::ReportedOr(global_, L"GetIndexUserNode", controls::kNoNode,
                         [&] { return Above(node, LevelsToUser(tag)); });
}

NodeId TreeLookup::GetIndexGroupNode(std::wstring_view tag, NodeId node) const {
  return app::ReportedOr(global_, L"GetIndexGroupNode", controls::kNoNode,
                         [&] { return Above(node, LevelsToGroup(tag)); });
}

std::wstring TreeLookup::GetUserName(std::wstring_view tag, NodeId node) const {
  return app::ReportedOr(global_, L"GetUserName", std::wstring(),
                         [&] { return TextAbove(node, LevelsToUserName(tag)); });
}

std::wstring TreeLookup::GetGroupName(std::wstring_view tag, NodeId node) const {
  return app::ReportedOr(global_, L"GetGroupName", std::wstring(),
                         [&] { return TextAbove(node, LevelsToGroupName(tag)); });
}

std::wstring TreeLookup::GetPermName(std::wstring_view tag, NodeId node) const {
  return app::ReportedOr(global_, L"GetPermName", std::wstring(), [&] {
    return TextAbove(node, tag == L"PU" || tag == L"PG" ? 0 : kNowhere);
  });
}

}  // namespace browser
