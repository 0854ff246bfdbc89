#include "controls/TreeModel.h"

#include <utility>

#include "controls/Events.h"
#include "controls/SortKey.h"

namespace controls {

TreeModel::TreeModel(View* view)
    : nodes_([](std::wstring_view text) { return SortKey(text); }), view_(view) {}

// A batch of changes that is under way goes on in the next life, and ends there.
void TreeModel::Restart() {
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
  if (view_) view_->Added(parent);
  Show();
  return node;
}

void TreeModel::Remove(NodeId node) {
  LeaveNode(node);
  if (view_) view_->Removing(node);
  nodes_.Remove(node);
  Show();
}

void TreeModel::RemoveChildren(NodeId node) {
  LeaveBelow(node);
  if (view_) view_->RemovingChildren(node);
  nodes_.RemoveChildren(node);
  Show();
}

void TreeModel::Clear() {
  if (view_) view_->Clearing();
  nodes_.Clear();
  selected_ = kNoNode;
  if (updates_ > 0) return;
  Show();
  nodes_.Sweep();
}

void TreeModel::SetText(NodeId node, std::wstring_view text) {
  nodes_.SetText(node, Share(text));
  if (view_) view_->Changed(node);
  Show();
}

void TreeModel::SetImage(NodeId node, int image) {
  nodes_.SetImage(node, image);
  if (view_) view_->Changed(node);
  Show();
}

void TreeModel::SetSorted(NodeId node, bool sorted) {
  nodes_.SetSorted(node, sorted);
  Show();
}

void TreeModel::SetExpanded(NodeId node, bool expanded) {
  if (nodes_.Expanded(node) == expanded) return;
  nodes_.SetExpanded(node, expanded);
  if (view_) view_->ExpansionChanged(node);
  if (!expanded) LeaveBelow(node);
  Show();
  Raise(tree_->Owner(), expanded ? tree_->Expand : tree_->Collapse, node);
}

void TreeModel::Select(NodeId node) {
  if (node != kNoNode) OpenWay(node);
  if (node != kNoNode && !nodes_.Exists(node)) return;
  selected_ = node;
  reveal_ = true;
  Show();
}

void TreeModel::EnsureVisible(NodeId node) {
  if (!view_ || !nodes_.Exists(node)) return;
  for (NodeId above = nodes_.Parent(node); above != kNoNode; above = nodes_.Parent(above)) {
    if (!nodes_.Expanded(above)) return;
  }
  view_->EnsureVisible(node);
}

void TreeModel::EndUpdate() {
  if (--updates_ > 0) return;
  Show();
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

std::vector<NodeId> TreeModel::ChildrenInOrder(NodeId parent) {
  nodes_.PutInOrder(parent);
  return nodes_.ChildrenInOrder(parent);
}

// Before the node and what is below it are removed: the selection passes to the next sibling, else
// the previous one, else the parent.
void TreeModel::LeaveNode(NodeId node) {
  if (selected_ == kNoNode || (selected_ != node && !nodes_.IsBelow(selected_, node))) return;
  selected_ = nodes_.Next(node);
  if (selected_ == kNoNode) selected_ = nodes_.Previous(node);
  if (selected_ == kNoNode) selected_ = nodes_.Parent(node);
}

void TreeModel::LeaveBelow(NodeId node) {
  if (selected_ != kNoNode && nodes_.IsBelow(selected_, node)) selected_ = node;
}

// Once for a batch of changes: outside of one, after every change.
void TreeModel::Show() {
  if (updates_ > 0) return;
  const std::vector<NodeId> reordered = nodes_.TakeReordered();
  if (!view_) return;
  view_->Reordered(reordered);
  view_->Show(selected_, std::exchange(reveal_, false));
}

}  // namespace controls
