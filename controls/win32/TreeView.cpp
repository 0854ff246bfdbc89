#include "controls/TreeView.h"

#include "controls/win32/TreeViewPeer.h"

namespace controls {
namespace {

TreeViewPeer& PeerOfTree(const TreeView& tree) {
  return static_cast<TreeViewPeer&>(tree.BackEnd());
}

}  // namespace

TreeView::TreeView(Form& form, int id)
    : Control(form, id, std::make_unique<TreeViewPeer>(form, id)) {}

TreeView::Update::Update(TreeView& tree) : tree_(tree) {
  ++PeerOfTree(tree_).updates;
}

TreeView::Update::~Update() {
  TreeViewPeer& peer = PeerOfTree(tree_);
  --peer.updates;
  peer.EndChange();
}

void TreeView::SetImageList(const ImageList& images) {
  TreeViewPeer& peer = PeerOfTree(*this);
  // Given once more the same list, the native control would paint all of itself anew.
  if (peer.images == &images) return;
  peer.images = &images;
  peer.ShowImages();
}

int TreeView::Add(int parent, const KeyForm& keyForm, std::int32_t id, std::wstring_view text,
                  int image) {
  TreeNodes& nodes = PeerOfTree(*this).nodes;
  const int present = nodes.FindChild(parent, keyForm, id);
  return present != kNoNode ? present : AddUnique(parent, keyForm, id, nodes.Share(text), image);
}

int TreeView::AddUnique(int parent, const KeyForm& keyForm, std::int32_t id, TextRef text,
                        int image) {
  TreeViewPeer& peer = PeerOfTree(*this);
  const int node = peer.nodes.Add(parent, keyForm, id, text, image);
  peer.items.Added(parent);
  // The texts are not swept: the caller may show this one again.
  if (peer.updates == 0) peer.Follow();
  return node;
}

TextRef TreeView::Share(std::wstring_view text) {
  return PeerOfTree(*this).nodes.Share(text);
}

void TreeView::Remove(int node) {
  TreeViewPeer& peer = PeerOfTree(*this);
  peer.LeaveNode(node);
  peer.items.Removing(node);
  peer.nodes.Remove(node);
  peer.EndChange();
}

void TreeView::RemoveChildren(int node) {
  TreeViewPeer& peer = PeerOfTree(*this);
  peer.LeaveBelow(node);
  peer.items.RemovingChildren(node);
  peer.nodes.RemoveChildren(node);
  peer.EndChange();
}

void TreeView::Clear() {
  TreeViewPeer& peer = PeerOfTree(*this);
  peer.items.Clearing();
  peer.nodes.Clear();
  peer.selected = kNoNode;
  peer.EndChange();
}

void TreeView::SetText(int node, std::wstring_view text) {
  TreeViewPeer& peer = PeerOfTree(*this);
  peer.nodes.SetText(node, peer.nodes.Share(text));
  peer.items.Changed(node);
  peer.EndChange();
}

void TreeView::SetImage(int node, int image) {
  TreeViewPeer& peer = PeerOfTree(*this);
  peer.nodes.SetImage(node, image);
  peer.items.Changed(node);
  if (peer.updates == 0) peer.Follow();
}

void TreeView::SetSorted(int node, bool sorted) {
  TreeViewPeer& peer = PeerOfTree(*this);
  peer.nodes.SetSorted(node, sorted);
  peer.EndChange();
}

void TreeView::SetStoredName(int node, std::wstring_view name) {
  PeerOfTree(*this).nodes.SetStoredName(node, name);
}

void TreeView::SetExpanded(int node, bool expanded) {
  TreeViewPeer& peer = PeerOfTree(*this);
  if (peer.nodes.Expanded(node) != expanded) peer.SetExpanded(node, expanded);
}

const TreeNodes& TreeView::Nodes() const {
  return PeerOfTree(*this).nodes;
}

int TreeView::SelectedNode() const {
  return PeerOfTree(*this).selected;
}

void TreeView::SetSelectedNode(int node) {
  TreeViewPeer& peer = PeerOfTree(*this);
  if (node != kNoNode) peer.OpenWay(node);
  if (node != kNoNode && !peer.nodes.Exists(node)) return;
  peer.selected = node;
  peer.show = true;
  if (peer.updates == 0) peer.Follow();
}

}  // namespace controls
