// What a user asks of a tree view beyond selecting and opening: menus, copies, tips.

#include <windowsx.h>

#include <cstring>

#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"
#include "controls/win32/TreeViewPeer.h"
#include "controls/win32/WindowPlace.h"

namespace controls {
namespace {

constexpr LPARAM kByKeyboard = -1;

bool IsDown(int keyCode) {
  return GetKeyState(keyCode) < 0;
}

bool IsCopy(WPARAM keyCode) {
  if (!IsDown(VK_CONTROL) || IsDown(VK_SHIFT) || IsDown(VK_MENU)) return false;
  return keyCode == 'C' || keyCode == VK_INSERT;
}

}  // namespace

HTREEITEM TreeViewPeer::ItemAt(POINT place) const {
  TVHITTESTINFO hit = {};
  hit.pt = place;
  Send(TVM_HITTEST, 0, AsLParam(&hit));
  return hit.flags & TVHT_ONITEM ? hit.hItem : nullptr;
}

std::optional<RECT> TreeViewPeer::TextPlace(HTREEITEM item) const {
  if (!item) return std::nullopt;
  RECT place = {};
  // The message takes the item in the very place where it puts the rectangle.
  std::memcpy(&place, &item, sizeof item);
  if (!Send(TVM_GETITEMRECT, TRUE, AsLParam(&place))) return std::nullopt;
  return place;
}

RECT TreeViewPeer::ScreenPlace(NodeId node) const {
  HTREEITEM item = items.ItemOf(node);
  if (item) Send(TVM_ENSUREVISIBLE, 0, AsLParam(item));
  return Mapped(window, nullptr, TextPlace(item).value_or(RECT{}));
}

// The control has opened or closed a node that has children by then.
LRESULT TreeViewPeer::DoubleClick(const Message& message) {
  const LRESULT result = Peer::Handle(message);
  if (!window || !TakesInput() || Refuses()) return result;
  const NodeId node =
      items.NodeOf(ItemAt({GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)}));
  model.DoubleClick(node);
  return result;
}

// The control itself would show the node under the mouse as chosen without choosing it, and wait
// for the button in a loop of its own.
LRESULT TreeViewPeer::PressRight(const Message& message) {
  if (!TakesInput() || Refuses()) return 0;
  ::SetFocus(window);
  const POINT place = {GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
  if (TakesInput()) Select(ItemAt(place));
  return 0;
}

void TreeViewPeer::Select(HTREEITEM item) const {
  if (item) Send(TVM_SELECTITEM, TVGN_CARET, AsLParam(item));
}

LRESULT TreeViewPeer::AskForMenu(const Message& message) {
  if (!TakesInput() || Refuses()) return 0;
  NodeId node = model.Selected();
  if (message.lParam != kByKeyboard) {
    POINT place = {GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
    menuPlace = place;
    ScreenToClient(window, &place);
    HTREEITEM item = ItemAt(place);
    node = items.NodeOf(item);
    Select(item);
  }
  // The selection's own procedure may have taken the node away.
  model.AskForMenu(node);
  menuPlace.reset();
  return 0;
}

LRESULT TreeViewPeer::SystemKey(const Message& message) {
  if (message.wParam == VK_F10 && IsDown(VK_SHIFT)) {
    return AskForMenu({WM_CONTEXTMENU, AsWParam(window), kByKeyboard});
  }
  // Wine's tree view keeps these keys to itself, and with them Alt+F4.
  return DefWindowProcW(window, message.number, message.wParam, message.lParam);
}

LRESULT TreeViewPeer::Key(const Message& message) {
  if (IsCopy(message.wParam)) {
    if (TakesInput() && !Refuses()) model.AskForCopy();
    return 0;
  }
  // The control would select the node above; where this key leads is for the form to say.
  if (message.wParam == VK_BACK) return 0;
  // The key that opens all there is below a node opens one level: below the root there may be
  // a million nodes.
  if (message.wParam == VK_MULTIPLY) return Native({message.number, VK_ADD, message.lParam});
  return Peer::Handle(message);
}

// No node's name begins with what a key types together with Control: the control would look for
// one, and beep.
LRESULT TreeViewPeer::Character(const Message& message) {
  return message.wParam < L' ' ? 0 : Peer::Handle(message);
}

std::wstring TreeViewPeer::AskTip(NodeId node) const {
  return window && !Refuses() ? model.AskTip(node) : std::wstring();
}

}  // namespace controls
