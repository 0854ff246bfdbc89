#include "tests/support/controls/Eyes.h"

#include "controls/memory/ListBoxPeer.h"
#include "controls/memory/TreeViewPeer.h"

namespace test_support {
namespace {

void Look(const controls::TreeViewPeer& tree, int first, int level, std::vector<ShownNode>& shown) {
  const controls::TreeNodes& nodes = tree.nodes;
  for (int node = first; node != controls::kNoNode; node = nodes.Next(node)) {
    const bool open = nodes.HasChildren(node) && nodes.Expanded(node);
    shown.push_back({level, nodes.Text(node), nodes.Image(node), node == tree.selected,
                     nodes.HasChildren(node), open});
    if (open) Look(tree, nodes.FirstChild(node), level + 1, shown);
  }
}

}  // namespace

std::vector<ShownNode> ShownNodes(const controls::TreeView& tree) {
  const auto& peer = controls::PeerOf<controls::TreeViewPeer>(tree);
  std::vector<ShownNode> shown;
  Look(peer, peer.nodes.Root(), 0, shown);
  return shown;
}

std::vector<ShownItem> ShownItems(const controls::ListBox& list) {
  const auto& peer = controls::PeerOf<controls::ListBoxPeer>(list);
  const bool several = peer.kind == controls::ListBox::Kind::kMultiSelect;
  std::vector<ShownItem> shown;
  for (int i = 0; i < static_cast<int>(peer.items.size()); ++i) {
    shown.push_back({peer.items[i].text, peer.Selected(i), !several && i == peer.index});
  }
  return shown;
}

}  // namespace test_support
