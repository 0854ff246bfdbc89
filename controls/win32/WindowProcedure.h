#pragma once

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

// Ends the program where a form and its template do not fit together: no user could go on.
void Require(bool condition, const char* broken);

// The dialog procedure of every form. The form's peer comes with WM_INITDIALOG and lies in
// DWLP_USER until the form is unloaded.
INT_PTR CALLBACK FormProcedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam);

// The window procedure of every control, in front of its own. The control's peer lies in
// GWLP_USERDATA. The common controls' subclassing helper would do the same, but looks up a window
// property for each message, and a tree is told of ten thousand nodes in as many messages.
LRESULT CALLBACK ControlProcedure(HWND window, UINT number, WPARAM wParam, LPARAM lParam);

}  // namespace controls
