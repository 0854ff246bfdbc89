#include "controls/win32/TreeControl.h"

#include <unordered_map>

namespace controls {
namespace {

using Ranks = std::unordered_map<NodeId, int>;

int CALLBACK CompareRanks(LPARAM a, LPARAM b, LPARAM ranks) {
  const auto& places = StructIn<const Ranks>(ranks);
  return places.at(NodeIn(a)) - places.at(NodeIn(b));
}

}  // namespace

void TreeControl::Attach(HWND window) {
  window_ = window;
  redraw_.Attach(window);
}

HTREEITEM TreeControl::Next(UINT relation, HTREEITEM item) const {
  return HandleIn<HTREEITEM>(Send(TVM_GETNEXTITEM, relation, AsLParam(item)));
}

NodeId TreeControl::NodeOf(HTREEITEM item) const {
  TVITEMW native = {};
  native.mask = TVIF_PARAM | TVIF_HANDLE;
  native.hItem = item;
  if (!item || !Send(TVM_GETITEMW, 0, AsLParam(&native))) return kNoNode;
  return NodeIn(native.lParam);
}

bool TreeControl::IsOpen(HTREEITEM item) const {
  return item && (Send(TVM_GETITEMSTATE, AsWParam(item), TVIS_EXPANDED) & TVIS_EXPANDED);
}

TVITEMW TreeControl::Shown(NodeId node, HTREEITEM item, UINT parts) const {
  TVITEMW native = {};
  native.mask = parts | (item ? TVIF_HANDLE : 0);
  native.hItem = item;
  native.pszText = const_cast<wchar_t*>(nodes_.Text(node).c_str());
  native.iImage = native.iSelectedImage = nodes_.Image(node);
  native.cChildren = model_.HasChildrenOnView(node);
  native.lParam = AsLParam(node);
  return native;
}

HTREEITEM TreeControl::Insert(NodeId node, HTREEITEM parent, HTREEITEM after) {
  redraw_.Changing();
  TVINSERTSTRUCTW native = {};
  native.hParent = parent ? parent : TVI_ROOT;
  native.hInsertAfter = after;
  native.item = Shown(node, nullptr, kLook | TVIF_PARAM);
  return HandleIn<HTREEITEM>(Send(TVM_INSERTITEMW, 0, AsLParam(&native)));
}

void TreeControl::Change(HTREEITEM item, NodeId node, UINT parts) {
  if ((parts & kLook) != 0) redraw_.Changing();
  const TVITEMW native = Shown(node, item, parts);
  Send(TVM_SETITEMW, 0, AsLParam(&native));
}

void TreeControl::SetOpen(HTREEITEM item, bool open) {
  redraw_.Changing();
  Send(TVM_EXPAND, open ? TVE_EXPAND : TVE_COLLAPSE, AsLParam(item));
}

void TreeControl::MarkClosed(HTREEITEM item) {
  redraw_.Changing();
  TVITEMW native = {};
  native.mask = TVIF_HANDLE | TVIF_STATE;
  native.hItem = item;
  native.stateMask = TVIS_EXPANDED;
  Send(TVM_SETITEMW, 0, AsLParam(&native));
}

void TreeControl::Sort(HTREEITEM parent, const std::vector<NodeId>& order) {
  redraw_.Changing();
  Ranks ranks;
  ranks.reserve(order.size());
  for (const NodeId node : order) ranks.emplace(node, static_cast<int>(ranks.size()));
  TVSORTCB sort = {};
  sort.hParent = parent ? parent : TVI_ROOT;
  sort.lpfnCompare = CompareRanks;
  sort.lParam = AsLParam(&ranks);
  Send(TVM_SORTCHILDRENCB, FALSE, AsLParam(&sort));
}

void TreeControl::Delete(HTREEITEM item) {
  redraw_.Changing();
  Send(TVM_DELETEITEM, 0, AsLParam(item));
}

void TreeControl::DeleteChildren(HTREEITEM item) {
  const auto above = AsLParam(item);
  redraw_.Changing();
  // Closed first, which moves the control's own selection out of what goes.
  Send(TVM_EXPAND, TVE_COLLAPSE, above);
  Send(TVM_EXPAND, TVE_COLLAPSE | TVE_COLLAPSERESET, above);
  // The control may do that for an open item only.
  while (HTREEITEM child = Next(TVGN_CHILD, item)) Delete(child);
}

void TreeControl::Select(HTREEITEM item) const {
  Send(TVM_SELECTITEM, TVGN_CARET, AsLParam(item));
}

void TreeControl::Reveal(HTREEITEM item) const {
  Send(TVM_ENSUREVISIBLE, 0, AsLParam(item));
}

void TreeControl::ScrollTo(HTREEITEM item) const {
  if (Next(TVGN_FIRSTVISIBLE) != item) Send(TVM_SELECTITEM, TVGN_FIRSTVISIBLE, AsLParam(item));
}

void TreeControl::ScrollToStart() const {
  ScrollTo(Next(TVGN_ROOT));
  if (GetScrollPos(window_, SB_HORZ) != 0) Send(WM_HSCROLL, SB_LEFT, 0);
}

}  // namespace controls
