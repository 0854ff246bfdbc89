#pragma once

#include <windows.h>

#include "controls/Placement.h"

namespace controls {

// Where windows stand on the screen.
Area AreaOf(HWND window);
inline Area AreaIn(const RECT& place) {
  return {place.left, place.top, place.right, place.bottom};
}
// What the monitor that shows most of a window has beside the task bar.
Area WorkAreaOf(HWND window);
Area WorkAreaOf(HMONITOR monitor);
// Where a window stands, or would if it were neither maximised nor an icon.
Area UnmaximisedAreaOf(HWND window);
// Whether a window is maximised, or is an icon that will be again.
bool IsMaximised(HWND window);
void MoveWindowTo(HWND window, const Area& place);

// Puts a window in the middle of another one, on the monitor of that one.
void CentreOver(HWND window, HWND over);
// Brings a window wholly onto its monitor. One that its user may resize is made smaller for that.
void FitOntoMonitor(HWND window, bool resizable);

}  // namespace controls
