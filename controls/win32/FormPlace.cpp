#include "controls/win32/FormPlace.h"

namespace controls {
namespace {

MONITORINFO InformationOf(HMONITOR monitor) {
  MONITORINFO information = {};
  information.cbSize = sizeof information;
  GetMonitorInfoW(monitor, &information);
  return information;
}

WINDOWPLACEMENT PlacementOf(HWND window) {
  WINDOWPLACEMENT placement = {};
  placement.length = sizeof placement;
  GetWindowPlacement(window, &placement);
  return placement;
}

}  // namespace

Area AreaOf(HWND window) {
  RECT place = {};
  GetWindowRect(window, &place);
  return AreaIn(place);
}

Area WorkAreaOf(HMONITOR monitor) {
  return AreaIn(InformationOf(monitor).rcWork);
}

Area WorkAreaOf(HWND window) {
  return WorkAreaOf(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST));
}

// The system counts such places from the corner of the work area, not of the monitor.
Area UnmaximisedAreaOf(HWND window) {
  if (!IsZoomed(window) && !IsIconic(window)) return AreaOf(window);
  const MONITORINFO monitor = InformationOf(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST));
  RECT place = PlacementOf(window).rcNormalPosition;
  OffsetRect(&place, monitor.rcWork.left - monitor.rcMonitor.left,
             monitor.rcWork.top - monitor.rcMonitor.top);
  return AreaIn(place);
}

bool IsMaximised(HWND window) {
  if (!IsIconic(window)) return IsZoomed(window) != FALSE;
  return (PlacementOf(window).flags & WPF_RESTORETOMAXIMIZED) != 0;
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
