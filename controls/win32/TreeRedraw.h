#pragma once

#include <optional>

#include "controls/win32/Handles.h"
#include "controls/win32/ScrollBarFreeze.h"

namespace controls {

// Keeps a native tree view from painting while much of it changes: each change of its structure
// would otherwise cost a walk over all that stands below. What turns out to change nothing that is
// shown leaves the window as it is painted.
class TreeRedraw {
 public:
  TreeRedraw() = default;
  TreeRedraw(const TreeRedraw&) = delete;
  TreeRedraw& operator=(const TreeRedraw&) = delete;

  // Null where there is no window any more.
  void Attach(HWND window);

  // Much may change until End.
  void Begin() { begun_ = true; }
  // What is shown changes now: between Begin and End nothing is painted from here on.
  void Changing();
  // All is painted once more where anything has changed.
  void End();

 private:
  HWND window_ = nullptr;
  bool begun_ = false;
  // Told not to paint, the control still has its scroll bars painted as they change.
  std::optional<ScrollBarFreeze> bars_;
};

}  // namespace controls
