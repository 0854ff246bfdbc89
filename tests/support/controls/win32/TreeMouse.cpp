#include "tests/support/controls/win32/TreeMouse.h"

#include <gtest/gtest.h>

#include <cstring>

namespace testing_support {

void TreeMouse::OpenWay(int node) {
  const int above = tree_.nodes.Parent(node);
  if (above == controls::kNoNode) return;
  OpenWay(above);
  // A procedure that was told of an expansion may have taken the rest away.
  if (tree_.nodes.Exists(above) && !tree_.nodes.Expanded(above)) ClickButton(above);
}

void TreeMouse::ClickText(int node) {
  ClickOn(node, TVHT_ONITEMLABEL);
}

void TreeMouse::ClickButton(int node) {
  ClickOn(node, TVHT_ONITEMBUTTON);
}

HTREEITEM TreeMouse::Next(UINT relation, HTREEITEM item) const {
  return reinterpret_cast<HTREEITEM>(
      tree_.Send(TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

// Walks what the control itself holds, as its user sees it.
HTREEITEM TreeMouse::Find(int node) const {
  const int parent = tree_.nodes.Parent(node);
  HTREEITEM item = nullptr;
  if (parent == controls::kNoNode) {
    item = Next(TVGN_ROOT, nullptr);
  } else if (HTREEITEM above = Find(parent)) {
    item = Next(TVGN_CHILD, above);
  }
  while (item && tree_.items.NodeOf(item) != node) item = Next(TVGN_NEXT, item);
  return item;
}

void TreeMouse::ClickOn(int node, UINT part) {
  HTREEITEM item = Find(node);
  if (!item) {
    ADD_FAILURE() << "the control does not show node " << node;
    return;
  }
  tree_.Send(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
  // The message takes the item in the very place where it puts the rectangle.
  RECT line = {};
  std::memcpy(&line, &item, sizeof item);
  tree_.Send(TVM_GETITEMRECT, FALSE, reinterpret_cast<LPARAM>(&line));
  RECT client = {};
  GetClientRect(tree_.window, &client);
  const LONG middle = (line.top + line.bottom) / 2;
  for (LONG x = 0; x < client.right; ++x) {
    TVHITTESTINFO hit = {};
    hit.pt = {x, middle};
    tree_.Send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if (hit.hItem == item && (hit.flags & part)) return input_.Click(tree_.window, hit.pt);
  }
  ADD_FAILURE() << "the mouse does not find node " << node;
}

}  // namespace testing_support
