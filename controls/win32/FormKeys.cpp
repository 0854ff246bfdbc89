#include "controls/win32/FormKeys.h"

#include "controls/win32/FormPeer.h"

namespace controls {
namespace {

bool IsPressed(int keyCode) {
  return GetKeyState(keyCode) < 0;
}

}  // namespace

bool FormKeys::Preview(const MSG& message) {
  const int keyCode = static_cast<int>(message.wParam);
  if (message.message == WM_KEYDOWN) return Down(keyCode);
  if (message.message != WM_KEYUP) return false;
  if (keyCode == kKeyF1) f1Down_ = false;
  if (!form_.TakesInput()) return false;
  RunEventProcedure(form_.desktop, [&] { form_.form.Form_KeyUp(keyCode); });
  return !form_.life.window;
}

bool FormKeys::Down(int keyCode) {
  if (!form_.TakesInput()) return false;
  if (keyCode == kKeyF1) f1Down_ = true;
  const HWND before = form_.life.window;
  const int held = IsPressed(VK_CONTROL) && !IsPressed(VK_MENU) ? +kKeyControl : 0;
  RunEventProcedure(form_.desktop, [&] { form_.form.Form_KeyDown(keyCode + held); });
  // While a dialog stood, Control may have come up: the key would type its letter now.
  if (held != 0 && !IsPressed(VK_CONTROL)) return true;
  return form_.life.window != before || Navigate(keyCode);
}

bool FormKeys::Navigate(int keyCode) {
  switch (keyCode) {
    case VK_TAB:
      if (IsPressed(VK_CONTROL)) return form_.order.TurnTabs(IsPressed(VK_SHIFT));
      ShowFocusCues();
      form_.focus.Advance(IsPressed(VK_SHIFT));
      return true;
    case VK_NEXT:
    case VK_PRIOR:
      return IsPressed(VK_CONTROL) && form_.order.TurnTabs(keyCode == VK_PRIOR);
    case VK_RETURN:
      if (!form_.order.TakeEnter()) Press(form_.order.EnterButton());
      return true;
    case VK_ESCAPE:
      Press(form_.order.EscapeButton());
      return true;
    default:
      return false;
  }
}

// Windows hides focus frames and access keys until a window is used by the keyboard.
void FormKeys::ShowFocusCues() const {
  SendMessageW(form_.life.window, WM_CHANGEUISTATE,
               MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
}

void FormKeys::Press(ControlModel* button) const {
  if (!button) return;
  Control::Peer& peer = PeerOf(*button);
  if (peer.TakesInput()) peer.Command(BN_CLICKED);
}

void FormKeys::Help() {
  // Message boxes and modal forms pass the message on to the form below them, which does not mind.
  if (f1Down_ || !form_.TakesInput()) return;
  RunEventProcedure(form_.desktop, [&] { form_.form.Form_KeyUp(kKeyF1); });
}

}  // namespace controls
