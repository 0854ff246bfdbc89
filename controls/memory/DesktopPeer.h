#pragma once

#include <deque>
#include <functional>

#include "controls/Desktop.h"

namespace controls {

// What the desktop keeps in memory: the pointer, and the input that waits.
struct Desktop::Peer {
  // The stand-in for the user acts first; then what waits is handled until the form is unloaded.
  // With nothing left that could unload it the form is taken away.
  void HandleInputUntilUnloaded(Desktop& desktop, Form& form);
  // Handles one piece of input; false when none waits.
  bool HandleInput();

  MousePointer pointer = MousePointer::kDefault;
  int inputHolds = 0;  // holds without their release
  std::deque<std::function<void()>> input;
};

}  // namespace controls
