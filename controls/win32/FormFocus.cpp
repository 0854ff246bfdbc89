#include "controls/win32/FormFocus.h"

#include "controls/win32/FormPeer.h"

namespace controls {

void FormFocus::Give(Control::Peer& control) {
  if (!form_.life.shown) return order_.Want(control);
  const unsigned before = order_.Moves();
  if (GetFocus() != control.window && IsWindowEnabled(form_.life.window))
    ::SetFocus(control.window);
  // A procedure that was told of it may have moved the focus on, or unloaded the form.
  if (order_.Moves() == before) order_.MoveTo(&control);
}

void FormFocus::Start() {
  if (ControlModel* first = order_.TakeFirst()) Give(PeerOf(*first));
}

void FormFocus::Restore() const {
  const ControlModel* holder = order_.Holder();
  if (!holder || !holder->MayHaveFocus()) return;
  HWND window = PeerOf(*holder).window;
  if (GetFocus() != window) ::SetFocus(window);
}

void FormFocus::LeaveUnfit() {
  if (!order_.HolderIsUnfit()) return;
  const ControlModel& holder = *order_.Holder();
  if (ControlModel* next = order_.Next(&holder, false)) return Give(PeerOf(*next));
  // A hidden window would go on taking the keys.
  if (GetFocus() == PeerOf(holder).window) ::SetFocus(form_.life.window);
  order_.MoveTo(nullptr);
}

void FormFocus::Advance(bool backwards) {
  if (ControlModel* next = order_.Next(order_.Holder(), backwards)) Give(PeerOf(*next));
}

void FormFocus::ShowDefaultButton() const {
  const ControlModel* pressed = order_.EnterButton();
  for (const ControlModel* control : order_.Order()) {
    const Control::Peer& peer = PeerOf(*control);
    if (!peer.window || !peer.IsButton()) continue;
    const LONG_PTR style = GetWindowLongPtrW(peer.window, GWL_STYLE);
    const LONG_PTR type = control == pressed ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
    if ((style & BS_TYPEMASK) == type) continue;
    peer.Send(BM_SETSTYLE, static_cast<WPARAM>((style & 0xFFFF & ~BS_TYPEMASK) | type), TRUE);
  }
}

}  // namespace controls
