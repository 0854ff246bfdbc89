// What the system tells a form, as the form's own procedures and those of its controls.

#include <algorithm>

#include "controls/SessionEnd.h"
#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"
#include "controls/win32/FormPlace.h"

namespace controls {

INT_PTR Form::Peer::Handle(const Message& message) {
  const HDC context = HandleIn<HDC>(message.wParam);
  switch (message.number) {
    case WM_COMMAND:
      return Command(message);
    case WM_NOTIFY:
      return Notify(message);
    case WM_CLOSE:
      if (TakesInput()) form.Unload();
      return TRUE;
    case WM_QUERYENDSESSION:
      return MayEndSession();
    case WM_ENDSESSION:
      SessionEnds(message.wParam != 0);
      return TRUE;
    case WM_HELP:
      keys.Help();
      return TRUE;
    case WM_ACTIVATE:
      return Activate(LOWORD(message.wParam) != WA_INACTIVE);
    case WM_SETFOCUS:
      focus.Restore();
      return TRUE;
    case WM_SETCURSOR:
      return SetPointer(message);
    case WM_GETFONT:
      // A dialog knows its template's font only.
      return life.fontHandle ? Answer(AsLParam(life.fontHandle.Get())) : FALSE;
    case WM_GETMINMAXINFO:
      LimitSize(StructIn<MINMAXINFO>(message.lParam));
      return TRUE;
    case WM_SIZE:
      Resized(message.wParam);
      return TRUE;
    case WM_WTSSESSION_CHANGE:
      SessionMoved(message.wParam);
      return TRUE;
    case WM_DPICHANGED:
      DpiChanged(LOWORD(message.wParam), StructIn<const RECT>(message.lParam));
      return TRUE;
    case WM_THEMECHANGED:
      LookChanged();
      return FALSE;
    case WM_SYSCOLORCHANGE:
      ColoursChanged(message);
      return FALSE;
    case WM_ERASEBKGND:
    case WM_PRINTCLIENT:
      life.background.Erase(life.window, context);
      return Answer(TRUE);
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      // The brush itself is the answer, where there is one.
      return reinterpret_cast<INT_PTR>(
          life.background.Behind(HandleIn<HWND>(message.lParam), context));
    default:
      return FALSE;
  }
}

INT_PTR Form::Peer::Answer(LRESULT result) const {
  if (life.window) SetWindowLongPtrW(life.window, DWLP_MSGRESULT, result);
  return TRUE;
}

Control::Peer* Form::Peer::ControlOf(HWND native) const {
  const auto found = std::ranges::find(controls, native, &Control::Peer::window);
  return native && found != controls.end() ? *found : nullptr;
}

INT_PTR Form::Peer::Command(const Message& message) {
  HWND from = HandleIn<HWND>(message.lParam);
  if (!from) from = GetDlgItem(life.window, LOWORD(message.wParam));
  Control::Peer* control = ControlOf(from);
  if (control) control->Command(HIWORD(message.wParam));
  return TRUE;
}

INT_PTR Form::Peer::Notify(const Message& message) {
  auto& header = StructIn<NMHDR>(message.lParam);
  Control::Peer* control = ControlOf(header.hwndFrom);
  if (!control) return FALSE;
  // Most notifications want no answer, and there may be one for each of ten thousand nodes.
  const LRESULT result = control->Notify(header);
  return result != 0 ? Answer(result) : FALSE;
}

INT_PTR Form::Peer::Activate(bool active) {
  if (active) {
    focus.Restore();
  } else {
    keys.Forget();
  }
  return TRUE;
}

// The window that was asked answers, even where the form has no window any more.
INT_PTR Form::Peer::MayEndSession() {
  HWND asked = life.window;
  const bool may = controls::MayEndSession(form, TakesInput());
  SetWindowLongPtrW(asked, DWLP_MSGRESULT, may ? TRUE : FALSE);
  answers_ = true;
  return TRUE;
}

// Nobody can be asked any more. In the middle of a call to the session server, or of work that only
// paints, the forms stay as they are: the system ends the process, the database takes back what was
// not finished.
void Form::Peer::SessionEnds(bool ends) {
  if (!ends) return desktop.UnblockSessionEnd(form);
  const Desktop::Peer& surroundings = desktop.BackEnd();
  if (surroundings.inputHeld || surroundings.inputHolds > 0) return;
  bool stoodOver = false;
  while (!surroundings.forms.empty() && surroundings.forms.back() != this) {
    surroundings.forms.back()->EndLife();
    stoodOver = true;
  }
  if (!life.window) return;
  if (!stoodOver) return EndLife();
  // The procedure that showed what stood over this form ends first.
  PostMessageW(life.window, WM_CLOSE, 0, 0);
}

void Form::Peer::EndLife() {
  if (form.UnsavedChanges().empty()) form.Unload();
  if (life.window) Close();
}

INT_PTR Form::Peer::SetPointer(const Message& message) {
  if (desktop.BackEnd().pointer != MousePointer::kWait) return FALSE;
  if (LOWORD(message.lParam) != HTCLIENT) return FALSE;
  desktop.BackEnd().ApplyPointer();
  return Answer(TRUE);
}

void Form::Peer::LimitSize(MINMAXINFO& limits) const {
  if (!life.resizable || !life.window) return;
  RECT least = {0, 0, life.layout.BaseSize().cx, life.layout.BaseSize().cy};
  AdjustWindowRectExForDpi(&least, static_cast<DWORD>(GetWindowLongPtrW(life.window, GWL_STYLE)),
                           FALSE, static_cast<DWORD>(GetWindowLongPtrW(life.window, GWL_EXSTYLE)),
                           life.dpi);
  // A monitor that is smaller than the template shows all of the window nevertheless.
  const Area work = WorkAreaOf(life.window);
  limits.ptMinTrackSize = {std::min<LONG>(least.right - least.left, work.Width()),
                           std::min<LONG>(least.bottom - least.top, work.Height())};
}

void Form::Peer::Resized(WPARAM kind) {
  if (kind == SIZE_MINIMIZED || !life.window) return;
  life.layout.Apply(life.window);
  RepaintLater(nullptr);
}

// Windows tells the windows of the desktop alone. Native controls read the colours again when they
// are told.
void Form::Peer::ColoursChanged(const Message& message) {
  for (const Control::Peer* control : controls) {
    if (control->window) {
      SendMessageW(control->window, message.number, message.wParam, message.lParam);
    }
  }
  LookChanged();
}

// The user's session goes on before another machine, or before this one again.
void Form::Peer::SessionMoved(WPARAM event) {
  if (event != WTS_REMOTE_CONNECT && event != WTS_CONSOLE_CONNECT) return;
  desktop.BackEnd().remote = event == WTS_REMOTE_CONNECT;
  for (Control::Peer* control : controls) control->BufferingChanged();
}

void Form::Peer::DpiChanged(unsigned newDpi, const RECT& place) {
  const unsigned oldDpi = std::exchange(life.dpi, newDpi);
  life.layout.Rescale(oldDpi, newDpi);
  ApplyFont();
  life.background.Forget();
  if (life.icon) SetIcon(life.icon);
  for (Control::Peer* control : controls) control->DpiChanged();
  SetWindowPos(life.window, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
  Resized(SIZE_RESTORED);
}

}  // namespace controls
