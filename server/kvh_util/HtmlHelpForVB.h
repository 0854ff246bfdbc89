#pragma once

#include <windows.h>

// The library's one function: hands a request to the help viewer of the system, which is loaded
// when it is first needed and then stays. window is the owner of the help window; file a compiled
// help file, which a topic ("::/page.htm") or a window name (">name") may follow; command and data
// as the viewer takes them, 15 (a topic by its number) among them.
//
// Returns the help window, or null when there is none. GetLastError then says why: the reason that
// the viewer could not be loaded, ERROR_FILE_NOT_FOUND or ERROR_PATH_NOT_FOUND for the help file,
// ERROR_NOT_FOUND when the viewer did not show what was asked for.
extern "C" HWND WINAPI HtmlHelpForVB(HWND window, LPCWSTR file, UINT command, DWORD_PTR data);
