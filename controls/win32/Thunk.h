#pragma once

#include <exception>

#include "controls/Desktop.h"
#include "controls/win32/Handles.h"

// The border between the system and the forms. What the system calls arrives in one of the two
// procedures below, which hand it on as a typed call; no exception passes back through them.
namespace controls {

// A message that the system hands to one of our windows.
struct Message {
  UINT number;
  WPARAM wParam;
  LPARAM lParam;
};

// Calls what may run an event procedure. An exception that escapes is given to the desktop's
// handler; where there is none, or it fails itself, the program ends.
template <typename Call>
void Guarded(const Desktop& desktop, Call&& call) noexcept {
  try {
    call();
  } catch (...) {
    if (!desktop.EscapedError) std::terminate();
    desktop.EscapedError();
  }
}

// Ends the program where a form and its template do not fit together: no user could go on.
void Require(bool condition, const char* broken);

// The dialog procedure of every form. The form's peer comes with WM_INITDIALOG and lies in
// DWLP_USER until the form is unloaded.
INT_PTR CALLBACK FormThunk(HWND window, UINT number, WPARAM wParam, LPARAM lParam);

// The procedure in front of every control's own; reference is the control's peer.
LRESULT CALLBACK ControlThunk(HWND window, UINT number, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                              DWORD_PTR reference);

}  // namespace controls
