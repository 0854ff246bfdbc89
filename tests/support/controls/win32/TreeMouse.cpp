#include "tests/support/controls/win32/TreeMouse.h"

#include <gtest/gtest.h>

#include <cstring>

namespace test_support {

using controls::AsLParam;
using controls::HandleIn;

void TreeMouse::OpenWay(controls::NodeId node) {
  const controls::NodeId above = tree_.model.Nodes().Parent(node);
  if (above == controls::kNoNode) return;
  OpenWay(above);
  // A procedure that was told of an expansion may have taken the rest away.
  if (tree_.model.Nodes().Exists(above) && !tree_.model.Nodes().Expanded(above)) ClickButton(above);
}

void TreeMouse::ClickText(controls::NodeId node) {
  if (const auto place = Place(node, TVHT_ONITEMLABEL)) input_.Click(tree_.window, *place);
}

void TreeMouse::ClickTextAgain(controls::NodeId node) {
  if (const auto place = Place(node, TVHT_ONITEMLABEL)) input_.ClickAgain(tree_.window, *place);
}

void TreeMouse::RightClickText(controls::NodeId node) {
  if (const auto place = Place(node, TVHT_ONITEMLABEL)) input_.RightClick(tree_.window, *place);
}

std::wstring TreeMouse::AskTip(controls::NodeId node) const {
  constexpr int kMostText = 1024;
  wchar_t text[kMostText] = {};
  NMTVGETINFOTIPW question = {};
  question.hdr = {tree_.window, static_cast<UINT_PTR>(tree_.id), TVN_GETINFOTIPW};
  question.pszText = text;
  question.cchTextMax = kMostText;
  question.hItem = Find(node);
  question.lParam = AsLParam(node);
  SendMessageW(GetParent(tree_.window), WM_NOTIFY, question.hdr.idFrom, AsLParam(&question));
  return text;
}

void TreeMouse::ClickButton(controls::NodeId node) {
  if (const auto place = Place(node, TVHT_ONITEMBUTTON)) input_.Click(tree_.window, *place);
}

HTREEITEM TreeMouse::Next(UINT relation, HTREEITEM item) const {
  return HandleIn<HTREEITEM>(tree_.Send(TVM_GETNEXTITEM, relation, AsLParam(item)));
}

// Walks what the control itself holds, as its user sees it.
HTREEITEM TreeMouse::Find(controls::NodeId node) const {
  const controls::NodeId parent = tree_.model.Nodes().Parent(node);
  HTREEITEM item = nullptr;
  if (parent == controls::kNoNode) {
    item = Next(TVGN_ROOT, nullptr);
  } else if (HTREEITEM above = Find(parent)) {
    item = Next(TVGN_CHILD, above);
  }
  while (item && tree_.items.NodeOf(item) != node) item = Next(TVGN_NEXT, item);
  return item;
}

std::optional<POINT> TreeMouse::Place(controls::NodeId node, UINT part) const {
  HTREEITEM item = Find(node);
  if (!item) {
    ADD_FAILURE() << "the control does not show node " << controls::IndexOf(node);
    return std::nullopt;
  }
  tree_.Send(TVM_ENSUREVISIBLE, 0, AsLParam(item));
  // The message takes the item in the very place where it puts the rectangle.
  RECT line = {};
  std::memcpy(&line, &item, sizeof item);
  tree_.Send(TVM_GETITEMRECT, FALSE, AsLParam(&line));
  RECT client = {};
  GetClientRect(tree_.window, &client);
  const LONG middle = (line.top + line.bottom) / 2;
  for (LONG x = 0; x < client.right; ++x) {
    TVHITTESTINFO hit = {};
    hit.pt = {x, middle};
    tree_.Send(TVM_HITTEST, 0, AsLParam(&hit));
    if (hit.hItem == item && (hit.flags & part)) return hit.pt;
  }
  ADD_FAILURE() << "the mouse does not find node " << controls::IndexOf(node);
  return std::nullopt;
}

}  // namespace test_support
