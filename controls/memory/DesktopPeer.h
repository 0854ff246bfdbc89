#pragma once

#include <deque>
#include <functional>

#include "controls/Desktop.h"

namespace controls {

// What the desktop keeps in memory: the pointer, and the input that waits.
struct Desktop::Peer {
  // Handles what waits until the form is unloaded. With nothing left that could unload it the form
  // is taken away.
  void HandleUntilUnloaded(Form& form);
  // Handles one piece of input; false when none waits.
  bool HandleOne();

  MousePointer pointer = MousePointer::kDefault;
  int inputHolds = 0;  // holds without their release
  std::deque<std::function<void()>> input;
};

}  // namespace controls
