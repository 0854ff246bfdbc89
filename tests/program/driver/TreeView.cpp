#include "tests/program/driver/TreeView.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "data/Text.h"
#include "tests/program/driver/Failure.h"

namespace driver {
namespace {

constexpr int kLongestNode = 8192;

// What is asked for and its text lie together, so that one look brings both where the text is
// short, as nearly all are: looking into another process is expensive.
struct NodeRequest {
  TVITEMW item{};
  wchar_t text[128] = {};
};
constexpr std::size_t kNodeTextAt = offsetof(NodeRequest, text);

LPARAM AsParameter(const void* pointer) {
  return reinterpret_cast<LPARAM>(pointer);
}

}  // namespace

TreeView::TreeView(const Window& window)
    : window_(window), memory_(window.ProcessId(), kNodeTextAt + kLongestNode * sizeof(wchar_t)) {}

int TreeView::Count() const {
  return static_cast<int>(window_.Send(TVM_GETCOUNT));
}

bool TreeView::HasImages() const {
  return window_.Send(TVM_GETIMAGELIST, TVSIL_NORMAL) != 0;
}

HTREEITEM TreeView::Next(WPARAM which, HTREEITEM item) const {
  return reinterpret_cast<HTREEITEM>(window_.Send(TVM_GETNEXTITEM, which, AsParameter(item)));
}

TreeNode TreeView::Root() {
  return Read(Next(TVGN_ROOT, nullptr));
}

TreeNode TreeView::Selected() {
  return Read(Next(TVGN_CARET, nullptr));
}

HTREEITEM TreeView::Parent(HTREEITEM item) const {
  return Next(TVGN_PARENT, item);
}

TreeNode TreeView::Read(HTREEITEM item) {
  if (item == nullptr) throw Failure("the tree has no such node");
  NodeRequest request;
  request.item.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_PARAM | TVIF_CHILDREN | TVIF_STATE |
                      TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  request.item.hItem = item;
  request.item.stateMask = TVIS_EXPANDED | TVIS_SELECTED;
  request.item.pszText = static_cast<wchar_t*>(memory_.At(kNodeTextAt));
  request.item.cchTextMax = kLongestNode;
  memory_.Write(0, &request.item, sizeof request.item);
  if (window_.Send(TVM_GETITEMW, 0, AsParameter(memory_.At(0))) == 0) {
    throw Failure("the tree does not give a node");
  }
  memory_.Read(0, &request, sizeof request);
  TreeNode node;
  node.item = item;
  node.text.assign(request.text, wcsnlen(request.text, std::size(request.text)));
  if (node.text.size() == std::size(request.text)) {
    node.text = memory_.ReadText(kNodeTextAt, kLongestNode);
  }
  node.data = request.item.lParam;
  node.hasChildren = request.item.cChildren != 0;
  node.expanded = (request.item.state & TVIS_EXPANDED) != 0;
  node.selected = (request.item.state & TVIS_SELECTED) != 0;
  node.image = request.item.iImage;
  node.selectedImage = request.item.iSelectedImage;
  return node;
}

std::vector<TreeNode> TreeView::KnownChildren(HTREEITEM item) {
  std::vector<TreeNode> children;
  for (HTREEITEM child = Next(TVGN_CHILD, item); child != nullptr; child = Next(TVGN_NEXT, child)) {
    children.push_back(Read(child));
  }
  return children;
}

std::vector<TreeNode> TreeView::Children(const TreeNode& node) {
  if (!node.hasChildren) return {};
  if (!node.expanded) Expand(node.item);
  return KnownChildren(node.item);
}

TreeNode TreeView::Find(const std::vector<std::wstring>& path) {
  TreeNode node = Root();
  for (const std::wstring& text : path) {
    const std::vector<TreeNode> children = Children(node);
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](const TreeNode& child) { return child.text == text; });
    if (found == children.end()) {
      throw Failure("no node " + data::ToUtf8(text) + " under " + data::ToUtf8(node.text));
    }
    node = *found;
  }
  return node;
}

void TreeView::Expand(HTREEITEM item) {
  window_.Send(TVM_EXPAND, TVE_EXPAND, AsParameter(item));
}

void TreeView::Collapse(HTREEITEM item) {
  window_.Send(TVM_EXPAND, TVE_COLLAPSE, AsParameter(item));
}

void TreeView::Select(HTREEITEM item) {
  window_.Send(TVM_SELECTITEM, TVGN_CARET, AsParameter(item));
}

// A text may run out of the view to the right.
POINT TreeView::Reveal(HTREEITEM item) {
  window_.Send(TVM_ENSUREVISIBLE, 0, AsParameter(item));
  const RECT text = TextRectangle(item);
  if (text.bottom <= text.top) throw Failure("the tree does not show a node");
  return {text.left + (text.bottom - text.top) / 2, (text.top + text.bottom) / 2};
}

// The message takes the item in the place where it puts the rectangle.
RECT TreeView::TextRectangle(HTREEITEM item) {
  RECT rectangle{};
  memory_.Write(0, &item, sizeof item);
  if (window_.Send(TVM_GETITEMRECT, TRUE, AsParameter(memory_.At(0))) == 0) return {};
  memory_.Read(0, &rectangle, sizeof rectangle);
  return rectangle;
}

}  // namespace driver
