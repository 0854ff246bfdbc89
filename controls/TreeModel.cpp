#include "controls/TreeModel.h"

#include <utility>

#include "controls/Events.h"
#include "controls/SortKey.h"

namespace controls {

TreeModel::TreeModel(View* view)
    : nodes_([](std::wstring_view text) { return SortKey(text); }), view_(view) {}

// A batch of changes that is under way goes on in the next life, and ends there.
void TreeModel::Restart() {
  filter_.Clearing();
  filter_.Set({});
  nodes_.Clear();
  selected_ = kNoNode;
  reveal_ = false;
}

NodeId TreeModel::Add(NodeId parent, const KeyForm& keyForm, std::int32_t id,
                      std::wstring_view text, int image) {
  const NodeId present = nodes_.FindChild(parent, keyForm, id);
  return present != kNoNode ? present : AddUnique(parent, keyForm, id, Share(text), image);
}

NodeId TreeModel::AddUnique(NodeId parent, const KeyForm& keyForm, std::int32_t id, TextRef text,
                            int image) {
  const NodeId node = nodes_.Add(parent, keyForm, id, text, image);
  filter_.TextChanged(node);
  if (view_) view_->ChildrenChanged(parent);
  UpdateView();
  return node;
}

void TreeModel::Remove(NodeId node) {
  LeaveNode(node);
  if (view_) view_->Removing(node);
  filter_.Removing(node);
  nodes_.Remove(node);
  UpdateView();
}

void TreeModel::RemoveChildren(NodeId node) {
  LeaveBelow(node);
  if (view_) view_->RemovingChildren(node);
  filter_.RemovingChildren(node);
  nodes_.RemoveChildren(node);
  UpdateView();
}

void TreeModel::Clear() {
  if (view_) view_->Clearing();
  filter_.Clearing();
  nodes_.Clear();
  selected_ = kNoNode;
  if (updates_ > 0) return;
  UpdateView();
  nodes_.Sweep();
}

void TreeModel::SetText(NodeId node, std::wstring_view text) {
  nodes_.SetText(node, Share(text));
  if (view_) view_->Changed(node);
  TextChanged(node);
  UpdateView();
}

void TreeModel::SetStoredName(NodeId node, std::wstring_view name) {
  nodes_.SetStoredName(node, name);
  if (!filter_.IsSet()) return filter_.TextChanged(node);
  TextChanged(node);
  UpdateView();
}

void TreeModel::SetImage(NodeId node, int image) {
  nodes_.SetImage(node, image);
  if (view_) view_->Changed(node);
  UpdateView();
}

void TreeModel::SetSorted(NodeId node, bool sorted) {
  nodes_.SetSorted(node, sorted);
  UpdateView();
}

void TreeModel::SetExpanded(NodeId node, bool expanded) {
  if (nodes_.Expanded(node) == expanded) return;
  nodes_.SetExpanded(node, expanded);
  if (view_) view_->ExpansionChanged(node);
  if (!expanded) LeaveBelow(node);
  UpdateView();
  Raise(tree_->Owner(), expanded ? tree_->Expand : tree_->Collapse, node);
}

void TreeModel::Select(NodeId node) {
  if (node != kNoNode) OpenWay(node);
  if (node != kNoNode && !nodes_.Exists(node)) return;
  selected_ = node;
  KeepOnView(node);
  reveal_ = true;
  UpdateView();
}

void TreeModel::EnsureVisible(NodeId node) {
  if (!view_ || !nodes_.Exists(node) || !filter_.LetsThrough(node)) return;
  for (NodeId above = nodes_.Parent(node); above != kNoNode; above = nodes_.Parent(above)) {
    if (!nodes_.Expanded(above)) return;
  }
  view_->EnsureVisible(node);
}

void TreeModel::EndUpdate() {
  if (--updates_ > 0) return;
  UpdateView();
  nodes_.Sweep();
}

void TreeModel::OpenWay(NodeId node) {
  const NodeId above = nodes_.Parent(node);
  if (above == kNoNode) return;
  OpenWay(above);
  // A procedure that was told of an expansion may have taken the rest away.
  if (nodes_.Exists(above)) SetExpanded(above, true);
}

void TreeModel::Choose(NodeId node) {
  if (node == selected_) return;
  selected_ = node;
  KeepOnView(node);
  if (nodes_.Exists(node)) Raise(tree_->Owner(), tree_->NodeClick, node);
}

void TreeModel::AskForMenu(NodeId node) {
  if (nodes_.Exists(node) && node == selected_) Raise(tree_->Owner(), tree_->ContextMenu, node);
}

void TreeModel::DoubleClick(NodeId node) {
  if (nodes_.Exists(node) && node == selected_) Raise(tree_->Owner(), tree_->DblClick, node);
}

void TreeModel::AskForCopy() {
  if (nodes_.Exists(selected_)) Raise(tree_->Owner(), tree_->Copy, selected_);
}

std::wstring TreeModel::AskTip(NodeId node) const {
  std::wstring tip;
  if (!tree_->Tip || !nodes_.Exists(node) || !tree_->Owner().IsLoaded()) return tip;
  RunEventProcedure(tree_->Owner().OwnerDesktop(), [&] { tip = tree_->Tip(node); });
  return tip;
}

// Before the node and what is below it are removed: the selection passes to the next sibling, else
// the previous one, else the parent.
void TreeModel::LeaveNode(NodeId node) {
  if (selected_ == kNoNode || (selected_ != node && !nodes_.IsBelow(selected_, node))) return;
  const auto out = [this](NodeId sibling) {
    return sibling != kNoNode && !filter_.LetsThrough(sibling);
  };
  selected_ = nodes_.Next(node);
  while (out(selected_)) selected_ = nodes_.Next(selected_);
  if (selected_ == kNoNode) selected_ = nodes_.Previous(node);
  while (out(selected_)) selected_ = nodes_.Previous(selected_);
  if (selected_ == kNoNode) selected_ = nodes_.Parent(node);
  KeepOnView(selected_);
}

void TreeModel::LeaveBelow(NodeId node) {
  if (selected_ != kNoNode && nodes_.IsBelow(selected_, node)) selected_ = node;
}

std::vector<NodeId> TreeModel::ChildrenOnView(NodeId parent) {
  nodes_.PutInOrder(parent);
  std::vector<NodeId> children = nodes_.ChildrenInOrder(parent);
  if (filter_.IsSet()) {
    std::erase_if(children, [this](NodeId child) { return !filter_.LetsThrough(child); });
  }
  return children;
}

bool TreeModel::HasChildrenOnView(NodeId parent) const {
  if (!filter_.IsSet() || nodes_.Parent(parent) != kNoNode) return nodes_.HasChildren(parent);
  NodeId child = nodes_.AnyChild(parent);
  while (child != kNoNode && !filter_.LetsThrough(child)) child = nodes_.OtherSibling(child);
  return child != kNoNode;
}

void TreeModel::SetFilter(TreeFilterRule rule) {
  if (!rule.Matches && !filter_.IsSet()) return;
  filter_.Set(std::move(rule));
  filter_.Keep(selected_);
  for (NodeId root = nodes_.Root(); view_ && root != kNoNode; root = nodes_.OtherSibling(root)) {
    view_->ChildrenChanged(root);
  }
  reveal_ = true;
  UpdateView();
}

NodeId TreeModel::FirstMatch() const {
  for (const NodeId root : nodes_.ChildrenInOrder(kNoNode)) {
    for (const NodeId entry : nodes_.ChildrenInOrder(root)) {
      if (filter_.Matches(entry)) return entry;
    }
  }
  return kNoNode;
}

// What is selected stays on view when the selection goes on, too, until there is another filter: a
// list that moved under the mouse would have the second of two clicks hit another account.
void TreeModel::KeepOnView(NodeId node) {
  if (!filter_.Keep(node) || !view_) return;
  view_->ChildrenChanged(nodes_.Parent(filter_.EntryOf(node)));
}

void TreeModel::TextChanged(NodeId node) {
  filter_.TextChanged(node);
  if (!filter_.IsSet() || filter_.EntryOf(node) != node) return;
  if (view_) view_->ChildrenChanged(nodes_.Parent(node));
}

// Once for a batch of changes: outside of one, after every change.
void TreeModel::UpdateView() {
  if (updates_ > 0) return;
  const std::vector<NodeId> reordered = nodes_.TakeReordered();
  if (!view_) return;
  view_->Reordered(reordered);
  view_->Synchronise(selected_, std::exchange(reveal_, false));
}

}  // namespace controls
