#include "controls/win32/WindowProcedure.h"

#include <cstdio>
#include <exception>

#include "controls/Events.h"
#include "controls/win32/ControlPeer.h"
#include "controls/win32/DesktopPeer.h"
#include "controls/win32/FormPeer.h"

namespace controls {

void Require(bool condition, const char* broken) {
  if (condition) return;
  std::fprintf(stderr, "controls: %s\n", broken);
  std::fflush(stderr);
  std::terminate();
}

INT_PTR CALLBACK FormProcedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam) {
  if (number == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    return FALSE;
  }
  auto* peer = reinterpret_cast<Form::Peer*>(GetWindowLongPtrW(window, DWLP_USER));
  if (!peer) return FALSE;  // unloaded; its window ends when no message of it is being handled
  INT_PTR result = FALSE;
  const Form::Peer::MessageScope scope(*peer);
  RunEventProcedure(peer->desktop, [&] { result = peer->Handle({number, wParam, lParam}); });
  return result;
}

namespace {

// Keys and the mouse as the native controls understand them, which ask nobody whether they may.
bool IsInput(UINT number) {
  return (number >= WM_KEYFIRST && number <= WM_KEYLAST) ||
         (number > WM_MOUSEMOVE && number <= WM_MOUSELAST);
}

}  // namespace

LRESULT CALLBACK ControlProcedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam) {
  auto& peer = *reinterpret_cast<Control::Peer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (number == WM_NCDESTROY) return peer.Native({number, wParam, lParam});
  if (IsInput(number) && peer.Surroundings().BackEnd().inputHolds > 0) return 0;
  LRESULT result = 0;
  const Form::Peer::MessageScope scope(peer.form.BackEnd());
  RunEventProcedure(peer.Surroundings(), [&] { result = peer.Handle({number, wParam, lParam}); });
  return result;
}

}  // namespace controls
