#include "controls/TreeView.h"

#include "controls/win32/TreeViewPeer.h"

namespace controls {

TreeView::TreeView(Form& form, int id)
    : Control(form, id, std::make_unique<TreeViewPeer>(form, id)) {
  ModelOf(*this).SetOwner(*this);
}

TreeModel& ModelOf(const TreeView& tree) {
  return static_cast<TreeViewPeer&>(tree.BackEnd()).model;
}

void TreeView::SetImageList(const ImageList& images) {
  auto& peer = static_cast<TreeViewPeer&>(BackEnd());
  // Given once more the same list, the native control would paint all of itself again.
  if (peer.images == &images) return;
  peer.images = &images;
  peer.ApplyImageList();
}

}  // namespace controls
