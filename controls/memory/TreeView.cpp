#include "controls/TreeView.h"

#include "controls/memory/TreeViewPeer.h"

namespace controls {

TreeView::TreeView(Form& form, int id) : Control(form, id, std::make_unique<TreeViewPeer>()) {
  ModelOf(*this).SetOwner(*this);
}

TreeModel& ModelOf(const TreeView& tree) {
  return PeerOf<TreeViewPeer>(tree).model;
}

void TreeView::SetImageList(const ImageList&) {}

}  // namespace controls
