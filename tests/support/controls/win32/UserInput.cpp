#include "tests/support/controls/UserInput.h"

#include <cwctype>

#include "controls/CommandButton.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/TabStrip.h"
#include "controls/TextBox.h"
#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"
#include "controls/win32/ListBoxPeer.h"
#include "controls/win32/ListViewPeer.h"
#include "controls/win32/TreeViewPeer.h"
#include "tests/support/controls/win32/BoxAnswerer.h"
#include "tests/support/controls/win32/FormTip.h"
#include "tests/support/controls/win32/Input.h"
#include "tests/support/controls/win32/ListMouse.h"
#include "tests/support/controls/win32/RowMouse.h"
#include "tests/support/controls/win32/TreeMouse.h"
#include "tests/support/system/ScriptedDesktop.h"

namespace test_support {

using namespace controls;

namespace {

// Whether a user can get to the node, by opening what stands above it at the most.
bool IsThere(const TreeModel& model, NodeId node) {
  return model.Nodes().Exists(node) && model.Filter().LetsThrough(node);
}

TreeViewPeer& PeerOfTree(const TreeView& tree) {
  return static_cast<TreeViewPeer&>(tree.BackEnd());
}

ListBoxPeer& PeerOfList(const ListBox& list) {
  return static_cast<ListBoxPeer&>(list.BackEnd());
}

POINT Middle(HWND window) {
  RECT client = {};
  GetClientRect(window, &client);
  return {client.right / 2, client.bottom / 2};
}

// Where a key pressed in the form arrives.
HWND KeyTarget(const Form& form) {
  HWND window = form.BackEnd().life.window;
  HWND focus = GetFocus();
  if (focus && (focus == window || IsChild(window, focus))) return focus;
  SetActiveWindow(window);
  focus = GetFocus();
  return focus && IsChild(window, focus) ? focus : window;
}

bool HasMnemonic(const Control::Peer& control, wchar_t letter) {
  wchar_t kind[16] = {};
  GetClassNameW(control.window, kind, 16);
  const bool label = lstrcmpiW(kind, WC_STATICW) == 0;
  if (!label && lstrcmpiW(kind, WC_BUTTONW) != 0) return false;
  if (label && (GetWindowLongPtrW(control.window, GWL_STYLE) & SS_NOPREFIX)) return false;
  const std::wstring caption = control.WindowText();
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != L'&') continue;
    if (caption[i + 1] != L'&') return std::towlower(caption[i + 1]) == std::towlower(letter);
    ++i;
  }
  return false;
}

Font FontIn(HWND window, unsigned dpi) {
  LOGFONTW font = {};
  GetObjectW(HandleIn<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
  return {font.lfFaceName, MulDiv(-font.lfHeight, 72, static_cast<int>(dpi)), font.lfCharSet};
}

}  // namespace

struct UserInput::Parts {
  Parts(ScriptedDesktop& desktop, Script& script) : input(desktop), boxes(desktop.system, script) {}

  Input input;
  BoxAnswerer boxes;
};

UserInput::UserInput(ScriptedDesktop& desktop, Script& script)
    : parts_(std::make_unique<Parts>(desktop, script)) {}
UserInput::~UserInput() = default;

bool UserInput::CanUse(const Control& control) const {
  return control.BackEnd().TakesInput();
}

Font UserInput::FontOf(const Control& control) const {
  return FontIn(control.BackEnd().window, control.Owner().BackEnd().life.dpi);
}
Font UserInput::FontOf(const Form& form) const {
  return FontIn(form.BackEnd().life.window, form.BackEnd().life.dpi);
}
bool UserInput::HasIcon(const Form& form) const {
  return SendMessageW(form.BackEnd().life.window, WM_GETICON, ICON_BIG, 0) != 0;
}

bool UserInput::Focus(Control& control) {
  if (!CanUse(control) || !control.BackEnd().TakesFocus()) return false;
  ::SetFocus(control.BackEnd().window);
  parts_->input.Drain();
  return true;
}

// After Focus has moved the focus, what that set off may have put the control out of reach: the
// gesture then ends there.

bool UserInput::Click(CommandButton& button) {
  if (!Focus(button)) return false;
  HWND window = button.BackEnd().window;
  if (CanUse(button)) parts_->input.Click(window, Middle(window));
  return true;
}

bool UserInput::Type(TextBox& box, const std::wstring& text) {
  if (!Focus(box)) return false;
  for (const wchar_t character : text) {
    if (!CanUse(box) || !box.HasFocus()) break;
    parts_->input.Character(box.BackEnd().window, character);
  }
  parts_->input.Drain();
  return true;
}

bool UserInput::Type(ListBox& list, const std::wstring& text) {
  if (!Focus(list)) return false;
  for (const wchar_t character : text) {
    if (!CanUse(list) || !list.HasFocus()) break;
    HWND window = list.BackEnd().window;
    // The key of a blank means something to some lists, and brings the character itself.
    if (character == L' ') {
      parts_->input.KeyDown(window, VK_SPACE);
    } else {
      parts_->input.Character(window, character);
    }
    parts_->input.Drain();
  }
  return true;
}

// What the control itself does with a text from the clipboard, which tests that run side by side
// would have to share.
bool UserInput::Paste(TextBox& box, const std::wstring& text) {
  if (!Focus(box)) return false;
  if (CanUse(box)) box.BackEnd().Send(EM_REPLACESEL, TRUE, AsLParam(text.c_str()));
  parts_->input.Drain();
  return true;
}

bool UserInput::Choose(ListBox& list, int item) {
  if (!ModelOf(list).Has(item) || !Focus(list)) return false;
  ListMouse mouse(PeerOfList(list), parts_->input);
  if (CanUse(list) && ModelOf(list).Has(item)) mouse.ClickText(item);
  return true;
}

bool UserInput::Toggle(ListBox& list, int item) {
  const ListModel& model = ModelOf(list);
  if (model.Kind() == ListBox::Kind::kPlain || !model.Has(item) || !Focus(list)) return false;
  ListMouse mouse(PeerOfList(list), parts_->input);
  if (CanUse(list) && model.Has(item)) mouse.Toggle(item);
  return true;
}

bool UserInput::DoubleClick(ListBox& list, int item) {
  if (!Choose(list, item)) return false;
  ListMouse mouse(PeerOfList(list), parts_->input);
  if (CanUse(list) && ModelOf(list).Has(item)) mouse.ClickTextAgain(item);
  return true;
}

bool UserInput::Choose(ListView& list, int place) {
  if (!ModelOf(list).HasPlace(place) || !Focus(list)) return false;
  if (CanUse(list)) RowMouse(list, parts_->input).Click(place);
  return true;
}

bool UserInput::Toggle(ListView& list, int place) {
  if (!ModelOf(list).HasPlace(place) || !Focus(list)) return false;
  if (CanUse(list)) RowMouse(list, parts_->input).ClickWithControl(place);
  return true;
}

bool UserInput::DoubleClick(ListView& list, int place) {
  if (!Choose(list, place)) return false;
  if (CanUse(list) && ModelOf(list).HasPlace(place)) {
    RowMouse(list, parts_->input).ClickAgain(place);
  }
  return true;
}

bool UserInput::ClickHeading(ListView& list, int column) {
  if (!CanUse(list) || !ModelOf(list).HasColumn(column)) return false;
  RowMouse(list, parts_->input).ClickHeading(column);
  return true;
}

bool UserInput::ChooseTab(TabStrip& tabs, int tab) {
  if (tab < 0 || tab >= tabs.TabCount() || !Focus(tabs)) return false;
  RECT place = {};
  if (!CanUse(tabs)) return true;
  tabs.BackEnd().Send(TCM_GETITEMRECT, static_cast<WPARAM>(tab), AsLParam(&place));
  parts_->input.Click(tabs.BackEnd().window,
                      {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
  return true;
}

bool UserInput::Select(TreeView& tree, NodeId node) {
  TreeViewPeer& peer = PeerOfTree(tree);
  if (!IsThere(peer.model, node) || !Focus(tree)) return false;
  TreeMouse mouse(peer, parts_->input);
  mouse.OpenWay(node);
  if (CanUse(tree) && peer.model.Nodes().Exists(node)) mouse.ClickText(node);
  return true;
}

bool UserInput::DoubleClick(TreeView& tree, NodeId node) {
  if (!Select(tree, node)) return false;
  TreeViewPeer& peer = PeerOfTree(tree);
  TreeMouse mouse(peer, parts_->input);
  if (CanUse(tree) && peer.model.Nodes().Exists(node)) mouse.ClickTextAgain(node);
  return true;
}

bool UserInput::RightClick(TreeView& tree, NodeId node) {
  TreeViewPeer& peer = PeerOfTree(tree);
  if (!IsThere(peer.model, node) || !Focus(tree)) return false;
  TreeMouse mouse(peer, parts_->input);
  mouse.OpenWay(node);
  if (CanUse(tree) && peer.model.Nodes().Exists(node)) mouse.RightClickText(node);
  return true;
}

bool UserInput::PressMenuKey(TreeView& tree) {
  if (!CanUse(tree) || !tree.HasFocus()) return false;
  const HeldKey shift(VK_SHIFT);
  parts_->input.SystemKeyDown(KeyTarget(tree.Owner()), VK_F10);
  return true;
}

std::wstring UserInput::TipOf(TreeView& tree, NodeId node) const {
  TreeViewPeer& peer = PeerOfTree(tree);
  if (!peer.window || !peer.model.Nodes().Exists(node)) return {};
  const std::wstring tip = TreeMouse(peer, parts_->input).AskTip(node);
  return tip == peer.model.Nodes().Text(node) ? std::wstring() : tip;
}

// The mouse over a disabled button is told to what lies below.
std::wstring UserInput::TipOf(const CommandButton& button) const {
  HWND form = button.Owner().BackEnd().life.window;
  HWND window = button.BackEnd().window;
  if (!window) return {};
  POINT inForm = Middle(window);
  MapWindowPoints(window, form, &inForm, 1);
  HWND below = ChildWindowFromPointEx(form, inForm, CWP_SKIPDISABLED | CWP_SKIPINVISIBLE);
  POINT place = inForm;
  MapWindowPoints(form, below, &place, 1);
  MSG move = {};
  move.hwnd = below;
  move.message = WM_MOUSEMOVE;
  move.lParam = MAKELPARAM(place.x, place.y);
  button.Owner().OwnerDesktop().BackEnd().Process(move);
  return FormTip(form).TextAt(inForm);
}

bool UserInput::Expand(TreeView& tree, NodeId node) {
  TreeViewPeer& peer = PeerOfTree(tree);
  if (!IsThere(peer.model, node) || peer.model.Nodes().Expanded(node)) return false;
  if (!peer.model.HasChildrenOnView(node) || !Focus(tree)) return false;
  TreeMouse mouse(peer, parts_->input);
  mouse.OpenWay(node);
  if (CanUse(tree) && peer.model.Nodes().Exists(node)) mouse.ClickButton(node);
  return true;
}

bool UserInput::Collapse(TreeView& tree, NodeId node) {
  TreeViewPeer& peer = PeerOfTree(tree);
  if (!IsThere(peer.model, node) || !peer.model.Nodes().Expanded(node)) return false;
  if (!peer.model.HasChildrenOnView(node) || !Focus(tree)) return false;
  TreeMouse mouse(peer, parts_->input);
  mouse.OpenWay(node);
  if (CanUse(tree) && peer.model.Nodes().Exists(node)) mouse.ClickButton(node);
  return true;
}

namespace {

bool Press(Input& input, Form& form, int keyCode) {
  Form::Peer& peer = form.BackEnd();
  if (!peer.TakesInput()) return false;
  input.KeyDown(KeyTarget(form), keyCode);
  if (peer.TakesInput()) input.KeyUp(KeyTarget(form), keyCode);
  return true;
}

}  // namespace

// The window may have been brought up by a key whose Control is still held in the window below.
bool UserInput::PressKey(Form& form, int keyCode, bool shift) {
  const HeldKey control(VK_CONTROL, false);
  std::optional<HeldKey> held;
  if (shift) held.emplace(VK_SHIFT);
  return Press(parts_->input, form, keyCode);
}

bool UserInput::PressCtrl(Form& form, int keyCode) {
  const HeldKey control(VK_CONTROL);
  return Press(parts_->input, form, keyCode);
}

bool UserInput::Mnemonic(Form& form, wchar_t letter) {
  Form::Peer& peer = form.BackEnd();
  if (!peer.TakesInput()) return false;
  for (const Control::Peer* control : peer.controls) {
    if (!control->IsUsable() || !HasMnemonic(*control, letter)) continue;
    parts_->input.MenuCharacter(KeyTarget(form), letter);
    return true;
  }
  return false;
}

bool UserInput::Close(Form& form) {
  if (!form.BackEnd().TakesInput()) return false;
  parts_->input.Send(form.BackEnd().life.window, WM_SYSCOMMAND, SC_CLOSE, 0);
  parts_->input.Drain();
  return true;
}

void UserInput::ClickLater(CommandButton& button) {
  parts_->input.ClickLater(button.BackEnd().window);
}

void UserInput::Settle() {
  parts_->input.Settle();
}

void UserInput::Discard(Form& form) {
  if (form.IsLoaded()) form.BackEnd().Close();
}

}  // namespace test_support
