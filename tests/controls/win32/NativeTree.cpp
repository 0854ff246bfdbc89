#include "tests/controls/win32/NativeTree.h"

namespace controls_test {

using controls::AsLParam;
using controls::kNoNode;

HTREEITEM NativeTree::Next(UINT relation, HTREEITEM item) const {
  return controls::HandleIn<HTREEITEM>(Send(TVM_GETNEXTITEM, relation, AsLParam(item)));
}

HTREEITEM NativeTree::Find(controls::NodeId node) const {
  const controls::NodeId parent = peer_.model.Nodes().Parent(node);
  HTREEITEM above = parent == kNoNode ? nullptr : Find(parent);
  if (parent != kNoNode && !above) return nullptr;
  HTREEITEM item = above ? Next(TVGN_CHILD, above) : Next(TVGN_ROOT);
  while (item && NodeOf(item) != node) item = Next(TVGN_NEXT, item);
  return item;
}

TVITEMW NativeTree::Read(HTREEITEM item) const {
  TVITEMW native = {};
  native.mask = TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN | TVIF_STATE;
  native.stateMask = TVIS_EXPANDED;
  native.hItem = item;
  Send(TVM_GETITEMW, 0, AsLParam(&native));
  return native;
}

std::wstring NativeTree::Text(HTREEITEM item) const {
  std::wstring text(5000, L'\0');
  TVITEMW native = {};
  native.mask = TVIF_TEXT;
  native.hItem = item;
  native.pszText = text.data();
  native.cchTextMax = static_cast<int>(text.size());
  Send(TVM_GETITEMW, 0, AsLParam(&native));
  return native.pszText;
}

bool NativeTree::IsOpen(HTREEITEM item) const {
  return (Read(item).state & TVIS_EXPANDED) != 0;
}

controls::NodeId NativeTree::Selected() const {
  HTREEITEM item = Next(TVGN_CARET);
  return item ? NodeOf(item) : kNoNode;
}

std::string NativeTree::Difference() const {
  if (Selected() != peer_.model.Selected()) return "another node is selected";
  return CompareChildren(Next(TVGN_ROOT), kNoNode);
}

std::string NativeTree::CompareChildren(HTREEITEM first, controls::NodeId parent) const {
  HTREEITEM item = first;
  for (const controls::NodeId node : peer_.model.ChildrenOnView(parent)) {
    if (!item) return "a child is missing";
    const std::string found = Compare(item, node);
    if (!found.empty()) return found;
    item = Next(TVGN_NEXT, item);
  }
  return item ? "a child too many" : std::string();
}

std::string NativeTree::Compare(HTREEITEM item, controls::NodeId node) const {
  const TVITEMW native = Read(item);
  const std::string name = "node " + std::to_string(IndexOf(node)) + ": ";
  if (controls::NodeIn(native.lParam) != node) return name + "another one stands there";
  if (Text(item) != peer_.model.Nodes().Text(node)) return name + "text";
  const int image = peer_.model.Nodes().Image(node);
  if (native.iImage != image || native.iSelectedImage != image) return name + "image";
  const bool hasButton = peer_.model.HasChildrenOnView(node);
  if ((native.cChildren != 0) != hasButton) return name + "button";
  const bool open = peer_.model.Nodes().Expanded(node) && hasButton;
  if (((native.state & TVIS_EXPANDED) != 0) != open) return name + "open or closed";
  HTREEITEM child = Next(TVGN_CHILD, item);
  return child ? CompareChildren(child, node) : std::string();
}

}  // namespace controls_test
