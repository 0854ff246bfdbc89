#pragma once

#include <array>

#include "controls/win32/Handles.h"

namespace controls {

// While it stands the system takes a window for hidden, so that its scroll bars may be set without
// being painted each time. A window that is hidden already is left alone.
class ScrollBarFreeze {
 public:
  explicit ScrollBarFreeze(HWND window);
  ~ScrollBarFreeze() { End(); }
  ScrollBarFreeze(const ScrollBarFreeze&) = delete;
  ScrollBarFreeze& operator=(const ScrollBarFreeze&) = delete;

  // Shows the window again, as the end of the object does too. True when its scroll bars are no
  // longer what they were and have to be painted.
  bool End();
  // Whether the window was on view.
  bool Shown() const { return shown_; }

 private:
  struct Bar {
    bool there = false;
    SCROLLINFO values = {};
  };
  using Bars = std::array<Bar, 2>;

  Bars Read() const;
  static bool Same(const Bars& a, const Bars& b);

  HWND window_;
  bool shown_;
  bool ended_ = false;
  Bars before_;
};

}  // namespace controls
