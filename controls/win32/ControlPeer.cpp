#include "controls/win32/ControlPeer.h"

#include "controls/win32/DesktopPeer.h"
#include "controls/win32/Fonts.h"
#include "controls/win32/FormPeer.h"

namespace controls {

void Control::Peer::Attach(HWND native) {
  window = native;
  SetWindowLongPtrW(native, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  const auto ours = reinterpret_cast<LONG_PTR>(ControlProcedure);
  procedure_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(native, GWLP_WNDPROC, ours));
  ApplyState();
  Attached();
}

void Control::Peer::Detach() {
  if (!window) return;
  Detached();
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure_));
  window = nullptr;
  state = {};
  fontHandle.Reset();
}

LRESULT Control::Peer::Handle(const Message& message) {
  const LRESULT result = Native(message);
  return message.number == WM_SETFOCUS ? FocusArrived() : result;
}

LRESULT Control::Peer::FocusArrived() {
  if (window && TakesFocus()) form.BackEnd().order.MoveTo(this);
  return 0;
}

LRESULT Control::Peer::Send(UINT number, WPARAM wParam, LPARAM lParam) const {
  return window ? SendMessageW(window, number, wParam, lParam) : 0;
}

LRESULT Control::Peer::Native(const Message& message) const {
  if (!window) return 0;
  return CallWindowProcW(procedure_, window, message.number, message.wParam, message.lParam);
}

std::wstring Control::Peer::WindowText() const {
  if (!window) return {};
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(GetWindowTextW(window, text.data(), static_cast<int>(text.size())));
  return text;
}

void Control::Peer::SetNativeText(const std::wstring& text) const {
  if (window) SetWindowTextW(window, text.c_str());
}

void Control::Peer::ChangeStyle(LONG_PTR remove, LONG_PTR add) const {
  const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
  const LONG_PTR wanted = (style & ~remove) | add;
  if (wanted != style) SetWindowLongPtrW(window, GWL_STYLE, wanted);
}

bool Control::Peer::TakesInput() const {
  return IsUsable() && form.BackEnd().TakesInput();
}

bool Control::Peer::Buffers() const {
  return !Surroundings().BackEnd().remote;
}

bool Control::Peer::ApplyState() const {
  if (!window) return false;
  const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
  const bool isVisible = state.IsVisible();
  if (((style & WS_DISABLED) == 0) != state.IsEnabled()) EnableWindow(window, state.IsEnabled());
  if (((style & WS_VISIBLE) != 0) == isVisible) return false;
  // Without painting, now or later: the form sees to that for all that changes together.
  SetWindowPos(window, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW |
                   (isVisible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
  return true;
}

void Control::Peer::SetNativeFont(HFONT handle) const {
  Send(WM_SETFONT, AsWParam(handle), TRUE);
}

void Control::Peer::RenewFont() {
  if (!state.font) return;
  FontHandle handle = MakeFont(*state.font, form.BackEnd().life.dpi);
  SetNativeFont(handle.Get());
  fontHandle = std::move(handle);
}

}  // namespace controls
