#include "tests/support/controls/ShownContent.h"

#include "controls/win32/ListBoxPeer.h"
#include "controls/win32/TreeViewPeer.h"

namespace test_support {
namespace {

constexpr int kMostText = 5000;

HTREEITEM Next(const controls::TreeViewPeer& tree, UINT relation, HTREEITEM item) {
  return controls::HandleIn<HTREEITEM>(
      tree.Send(TVM_GETNEXTITEM, relation, controls::AsLParam(item)));
}

ShownNode LookAt(const controls::TreeViewPeer& tree, HTREEITEM item, int level) {
  std::wstring text(kMostText, L'\0');
  TVITEMW native = {};
  native.mask =
      TVIF_HANDLE | TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN | TVIF_STATE;
  native.hItem = item;
  native.stateMask = TVIS_EXPANDED | TVIS_SELECTED;
  native.pszText = text.data();
  native.cchTextMax = kMostText;
  tree.Send(TVM_GETITEMW, 0, controls::AsLParam(&native));
  text.resize(wcslen(native.pszText));
  const bool open = (native.state & TVIS_EXPANDED) && Next(tree, TVGN_CHILD, item);
  // The image of a selected node is another one of the native item; they are to be the same.
  const int image = native.iImage == native.iSelectedImage ? native.iImage : -1;
  return {level, text, image, (native.state & TVIS_SELECTED) != 0, native.cChildren != 0, open};
}

void Look(const controls::TreeViewPeer& tree, HTREEITEM item, int level,
          std::vector<ShownNode>& shown) {
  for (; item; item = Next(tree, TVGN_NEXT, item)) {
    shown.push_back(LookAt(tree, item, level));
    if (shown.back().open) Look(tree, Next(tree, TVGN_CHILD, item), level + 1, shown);
  }
}

ShownItem CheckItem(const controls::ListBoxPeer& list, int item) {
  std::wstring text(kMostText, L'\0');
  LVITEMW native = {};
  native.mask = LVIF_TEXT | LVIF_STATE;
  native.iItem = item;
  native.stateMask = LVIS_STATEIMAGEMASK | LVIS_FOCUSED;
  native.pszText = text.data();
  native.cchTextMax = kMostText;
  list.Send(LVM_GETITEMW, 0, controls::AsLParam(&native));
  text.resize(wcslen(native.pszText));
  const bool checked = (native.state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
  return {text, checked, (native.state & LVIS_FOCUSED) != 0};
}

ShownItem PlainItem(const controls::ListBoxPeer& list, int item) {
  const auto number = static_cast<WPARAM>(item);
  std::wstring text(static_cast<std::size_t>(list.Send(LB_GETTEXTLEN, number)) + 1, L'\0');
  list.Send(LB_GETTEXT, number, controls::AsLParam(text.data()));
  text.pop_back();
  const bool several = list.model.Kind() == controls::ListBox::Kind::kMultiSelect;
  const bool focused = !several && list.Send(LB_GETCURSEL) == item;
  return {text, list.Send(LB_GETSEL, number) > 0, focused};
}

}  // namespace

std::vector<ShownNode> ShownNodes(const controls::TreeView& tree) {
  const auto& peer = static_cast<controls::TreeViewPeer&>(tree.BackEnd());
  std::vector<ShownNode> shown;
  Look(peer, Next(peer, TVGN_ROOT, nullptr), 0, shown);
  return shown;
}

std::vector<ShownItem> ShownItems(const controls::ListBox& list) {
  const auto& peer = static_cast<controls::ListBoxPeer&>(list.BackEnd());
  const bool checks =
      list.BackEnd().window && peer.model.Kind() == controls::ListBox::Kind::kChecked;
  std::vector<ShownItem> shown;
  const int count = static_cast<int>(peer.Send(checks ? LVM_GETITEMCOUNT : LB_GETCOUNT));
  for (int i = 0; i < count; ++i) shown.push_back(checks ? CheckItem(peer, i) : PlainItem(peer, i));
  return shown;
}

}  // namespace test_support
