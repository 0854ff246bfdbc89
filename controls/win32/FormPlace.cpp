#include "controls/win32/FormPlace.h"

namespace controls {

Area AreaOf(HWND window) {
  RECT place = {};
  GetWindowRect(window, &place);
  return AreaIn(place);
}

Area WorkAreaOf(HWND window) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return AreaIn(monitor.rcWork);
}

void MoveWindowTo(HWND window, const Area& place) {
  SetWindowPos(window, nullptr, place.left, place.top, place.Width(), place.Height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

// A window that comes to a monitor of another resolution is given another size on the way there, so
// that its middle has to be found again.
void CentreOver(HWND window, HWND over) {
  const Area work = WorkAreaOf(over);
  for (int attempt = 0; attempt < 2; ++attempt) {
    const Area place = CentredOver(AreaOf(window), AreaOf(over), work);
    SetWindowPos(window, nullptr, place.left, place.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    if (AreaOf(window) == place) break;
  }
}

void FitOntoMonitor(HWND window, bool resizable) {
  const Area place = AreaOf(window);
  const Area work = WorkAreaOf(window);
  const Area fitted = resizable ? FittedInto(place, work) : MovedInto(place, work);
  if (fitted != place) MoveWindowTo(window, fitted);
}

}  // namespace controls
