#include "controls/win32/TreeViewPeer.h"

#include "controls/Placement.h"
#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"
#include "controls/win32/ImageListPeer.h"

namespace controls {
namespace {

// How far a level stands from the one above, in units of 96 to the inch: an image and a little.
constexpr int kIndent = 19;

}  // namespace

TreeViewPeer::TreeViewPeer(Form& owner, int controlId) : Peer(owner, controlId) {}

void TreeViewPeer::Attached() {
  SetWindowTheme(window, L"Explorer", nullptr);
  BufferingChanged();
  items.Attach(window);
  tips_.Attach();
}

void TreeViewPeer::Detached() {
  tips_.Detach();
  items.Detach();
  model.Restart();
  images = nullptr;
  menuPlace.reset();
}

void TreeViewPeer::DpiChanged() {
  ApplyImageList();
  // The native control only ever grows it.
  Send(TVM_SETITEMHEIGHT, static_cast<WPARAM>(-1));
  tips_.SetWidth();
}

void TreeViewPeer::BufferingChanged() {
  Send(TVM_SETEXTENDEDSTYLE, TVS_EX_DOUBLEBUFFER, Buffers() ? TVS_EX_DOUBLEBUFFER : 0);
}

void TreeViewPeer::ApplyImageList() const {
  if (!images || !window) return;
  const unsigned dpi = form.BackEnd().life.dpi;
  Send(TVM_SETIMAGELIST, TVSIL_NORMAL, AsLParam(images->BackEnd().At(dpi)));
  // Not every system takes it from the images, and none makes it smaller again.
  Send(TVM_SETINDENT, static_cast<WPARAM>(Scaled(kIndent, USER_DEFAULT_SCREEN_DPI, dpi)));
}

void TreeViewPeer::Synchronise(NodeId selected, bool reveal) {
  items.Synchronise(selected, reveal);
  tips_.Changed();
}

void TreeViewPeer::EnsureVisible(NodeId node) {
  HTREEITEM item = items.ItemOf(node);
  if (item) Send(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
}

// In the middle of a change or of long work the native control shows what was; a user who acts on
// that would act on nodes that are no more.
bool TreeViewPeer::Refuses() const {
  return model.Updating() || takingFocus_ || form.OwnerDesktop().BackEnd().inputHeld;
}

LRESULT TreeViewPeer::Notify(NMHDR& header) {
  if (items.Busy()) return 0;
  const auto& change = NotificationIn<const NMTREEVIEWW>(header);
  const NodeId node = NodeIn(change.itemNew.lParam);
  switch (header.code) {
    case TVN_ITEMEXPANDINGW:
      if (Refuses()) return TRUE;
      if (change.action & TVE_EXPAND) {
        items.Fill(node);
      } else {
        // Before the control moves its own selection there, which it reports as if a user had.
        model.LeaveBelow(node);
      }
      return FALSE;
    case TVN_ITEMEXPANDEDW:
      Opened(node, (change.action & TVE_EXPAND) != 0);
      return 0;
    case TVN_SELCHANGINGW:
      return Refuses();
    case TVN_SELCHANGEDW:
      tips_.DescribeSoon();
      model.Choose(change.itemNew.hItem ? node : kNoNode);
      return 0;
    case TVN_GETINFOTIPW:
      tips_.Answer(NotificationIn<NMTVGETINFOTIPW>(header));
      return 0;
    default:
      return 0;
  }
}

LRESULT TreeViewPeer::Handle(const Message& message) {
  tips_.Mouse(message);
  switch (message.number) {
    case TVM_EXPAND:
      return items.Busy() ? Native(message) : Expand(message);
    case TVM_SELECTITEM:
    case TVM_ENSUREVISIBLE:
      return items.Busy() ? Native(message) : Reach(message);
    case WM_SETFOCUS:
      return FocusMessage(message);
    case WM_ERASEBKGND:
      return Buffers() ? TRUE : Peer::Handle(message);
    case WM_NCPAINT:
      return IsFrameConcerned(message.wParam) ? Peer::Handle(message) : 0;
    case WM_PAINT:
      Paint();
      return 0;
    case WM_LBUTTONDBLCLK:
      return DoubleClick(message);
    case WM_RBUTTONDOWN:
      return PressRight(message);
    case WM_RBUTTONUP:
      // Which asks for the menu.
      return DefWindowProcW(window, message.number, message.wParam, message.lParam);
    case WM_CONTEXTMENU:
      return AskForMenu(message);
    case WM_SYSKEYDOWN:
      return SystemKey(message);
    case WM_KEYDOWN:
      return Key(message);
    case WM_CHAR:
      return Character(message);
    case WM_NOTIFY:
      return tips_.Notify(StructIn<NMHDR>(message.lParam)) ? 0 : Peer::Handle(message);
    case WM_NOTIFYFORMAT:
      return message.lParam == NF_QUERY ? NFR_UNICODE : Peer::Handle(message);
    case kDescribe:
      tips_.Describe();
      return 0;
    default:
      return Peer::Handle(message);
  }
}

LRESULT TreeViewPeer::FocusMessage(const Message& message) {
  tips_.DescribeSoon();
  if (model.Selected() != kNoNode) return Peer::Handle(message);
  // A tree view without a selection makes one when it gets the focus; no user has.
  takingFocus_ = true;
  Native(message);
  takingFocus_ = false;
  return FocusArrived();
}

// Another program opens or closes a node. The control does not tell of that where the node has been
// open before.
LRESULT TreeViewPeer::Expand(const Message& message) {
  if (Refuses()) return FALSE;
  const NodeId node = items.NodeOf(HandleIn<HTREEITEM>(message.lParam));
  if (!model.Nodes().Exists(node)) return FALSE;
  items.Fill(node);
  if (items.IsOpen(node)) model.LeaveBelow(node);
  // Children that the control forgot would have to be told of again.
  const WPARAM action = message.wParam & ~static_cast<WPARAM>(TVE_COLLAPSERESET);
  const LRESULT result = Native({message.number, action, message.lParam});
  if (window && model.Nodes().Exists(node)) Opened(node, items.IsOpen(node));
  return result;
}

// Another program selects or looks for a node. The control would open what stands above it, and not
// always tell.
LRESULT TreeViewPeer::Reach(const Message& message) {
  const NodeId node = items.NodeOf(HandleIn<HTREEITEM>(message.lParam));
  if (model.Nodes().Exists(node)) model.OpenWay(node);
  return Native(message);
}

void TreeViewPeer::Opened(NodeId node, bool expanded) {
  if (model.Nodes().Exists(node)) model.SetExpanded(node, expanded);
}

}  // namespace controls
