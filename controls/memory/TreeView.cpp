#include "controls/TreeView.h"

#include "controls/Events.h"
#include "controls/SortKey.h"
#include "controls/memory/TreeViewPeer.h"

namespace controls {

TreeViewPeer::TreeViewPeer() : nodes([](std::wstring_view text) { return SortKey(text); }) {}

void TreeViewPeer::RestartKind() {
  nodes.Clear();
  selected = kNoNode;
}

bool TreeViewPeer::OnView(int node) const {
  for (int above = nodes.Parent(node); above != kNoNode; above = nodes.Parent(above)) {
    if (!nodes.Expanded(above)) return false;
  }
  return true;
}

void TreeViewPeer::OpenWay(TreeView& tree, int node) {
  const int above = nodes.Parent(node);
  if (above == kNoNode) return;
  OpenWay(tree, above);
  // A procedure that was told of an expansion may have taken the rest away.
  if (nodes.Exists(above)) tree.SetExpanded(above, true);
}

void TreeViewPeer::LeaveNode(int node) {
  if (selected == kNoNode || (selected != node && !nodes.IsBelow(selected, node))) return;
  selected = nodes.Next(node);
  if (selected == kNoNode) selected = nodes.Previous(node);
  if (selected == kNoNode) selected = nodes.Parent(node);
}

void TreeViewPeer::AskForMenu(const TreeView& tree) const {
  if (selected != kNoNode) Raise(tree.Owner(), tree.ContextMenu, selected);
}

void TreeViewPeer::AskForCopy(const TreeView& tree) const {
  if (selected != kNoNode) Raise(tree.Owner(), tree.Copy, selected);
}

void TreeViewPeer::EndChange() {
  // There is nobody here to whom the new order would have to be shown.
  if (updates == 0) nodes.TakeReordered();
}

TreeView::TreeView(Form& form, int id) : Control(form, id, std::make_unique<TreeViewPeer>()) {}

TreeView::Update::Update(TreeView& tree) : tree_(tree) {
  ++PeerOf<TreeViewPeer>(tree_).updates;
}

TreeView::Update::~Update() {
  auto& peer = PeerOf<TreeViewPeer>(tree_);
  if (--peer.updates > 0) return;
  peer.EndChange();
  peer.nodes.Sweep();
}

void TreeView::SetImageList(const ImageList&) {}

int TreeView::Add(int parent, const KeyForm& keyForm, std::int32_t id, std::wstring_view text,
                  int image) {
  auto& nodes = PeerOf<TreeViewPeer>(*this).nodes;
  const int present = nodes.FindChild(parent, keyForm, id);
  return present != kNoNode ? present : AddUnique(parent, keyForm, id, nodes.Share(text), image);
}

int TreeView::AddUnique(int parent, const KeyForm& keyForm, std::int32_t id, TextRef text,
                        int image) {
  auto& peer = PeerOf<TreeViewPeer>(*this);
  const int node = peer.nodes.Add(parent, keyForm, id, text, image);
  peer.EndChange();
  return node;
}

TextRef TreeView::Share(std::wstring_view text) {
  return PeerOf<TreeViewPeer>(*this).nodes.Share(text);
}

void TreeView::Remove(int node) {
  auto& peer = PeerOf<TreeViewPeer>(*this);
  peer.LeaveNode(node);
  peer.nodes.Remove(node);
  peer.EndChange();
}

void TreeView::RemoveChildren(int node) {
  auto& peer = PeerOf<TreeViewPeer>(*this);
  if (peer.selected != kNoNode && peer.nodes.IsBelow(peer.selected, node)) peer.selected = node;
  peer.nodes.RemoveChildren(node);
  peer.EndChange();
}

void TreeView::Clear() {
  auto& peer = PeerOf<TreeViewPeer>(*this);
  peer.nodes.Clear();
  peer.selected = kNoNode;
  if (peer.updates == 0) peer.nodes.Sweep();
}

void TreeView::SetText(int node, std::wstring_view text) {
  auto& peer = PeerOf<TreeViewPeer>(*this);
  peer.nodes.SetText(node, peer.nodes.Share(text));
  peer.EndChange();
}

void TreeView::SetImage(int node, int image) {
  PeerOf<TreeViewPeer>(*this).nodes.SetImage(node, image);
}

void TreeView::SetSorted(int node, bool sorted) {
  auto& peer = PeerOf<TreeViewPeer>(*this);
  peer.nodes.SetSorted(node, sorted);
  peer.EndChange();
}

void TreeView::SetStoredName(int node, std::wstring_view name) {
  PeerOf<TreeViewPeer>(*this).nodes.SetStoredName(node, name);
}

void TreeView::SetExpanded(int node, bool expanded) {
  auto& peer = PeerOf<TreeViewPeer>(*this);
  if (peer.nodes.Expanded(node) == expanded) return;
  peer.nodes.SetExpanded(node, expanded);
  if (expanded) {
    Raise(Owner(), Expand, node);
    return;
  }
  if (peer.selected != kNoNode && peer.nodes.IsBelow(peer.selected, node)) peer.selected = node;
  Raise(Owner(), Collapse, node);
}

const TreeNodes& TreeView::Nodes() const {
  return PeerOf<TreeViewPeer>(*this).nodes;
}

int TreeView::SelectedNode() const {
  return PeerOf<TreeViewPeer>(*this).selected;
}

void TreeView::SetSelectedNode(int node) {
  auto& peer = PeerOf<TreeViewPeer>(*this);
  if (node != kNoNode) peer.OpenWay(*this, node);
  if (node == kNoNode || peer.nodes.Exists(node)) peer.selected = node;
}

}  // namespace controls
