#pragma once

#include <windows.h>

#include <commctrl.h>

// What kind of native control a window is.
namespace controls {

inline bool IsOfClass(HWND window, const wchar_t* name) {
  wchar_t found[64] = {};
  GetClassNameW(window, found, 64);
  return lstrcmpiW(found, name) == 0;
}

inline bool IsFrame(HWND window) {
  return IsOfClass(window, WC_BUTTONW) &&
         (GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

}  // namespace controls
