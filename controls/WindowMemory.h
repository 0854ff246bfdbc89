#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "controls/Placement.h"

namespace controls {

// A monitor, as far as windows are concerned: what it has beside the task bar, and its resolution
// in dots to the inch.
struct Monitor {
  Area work;
  unsigned dpi = 96;
};

// How a window stood when it was last closed. Lengths are in units of 96 to the inch, so that the
// window is as large again on a monitor of another resolution.
struct WindowMemory {
  int monitorLeft = 0;  // the upper left corner of the monitor's work area, in pixels
  int monitorTop = 0;
  Area place;  // from that corner
  bool maximised = false;

  friend bool operator==(const WindowMemory&, const WindowMemory&) = default;
};

// What to remember of a window that has this place while it is not maximised.
WindowMemory Remember(const Area& window, bool maximised, const Monitor& monitor);
// Where a remembered window stands on a monitor, which need not be the one where it stood: at the
// same place and in the same size, as far as the work area lets it.
Area PlaceOn(const Monitor& monitor, const WindowMemory& memory);

// As a text, which is kept between two runs. What no run has written is not read.
std::wstring Print(const WindowMemory& memory);
std::optional<WindowMemory> ReadWindowMemory(std::wstring_view text);

}  // namespace controls
