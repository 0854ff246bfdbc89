#pragma once

#include "controls/Desktop.h"

namespace browser {

// Shows the wait pointer while it lives.
class WaitPointer {
 public:
  explicit WaitPointer(controls::Desktop& desktop) : desktop_(desktop), before_(desktop.Pointer()) {
    desktop_.SetMousePointer(controls::MousePointer::kWait);
  }
  ~WaitPointer() { desktop_.SetMousePointer(before_); }
  WaitPointer(const WaitPointer&) = delete;
  WaitPointer& operator=(const WaitPointer&) = delete;

 private:
  controls::Desktop& desktop_;
  controls::MousePointer before_;
};

}  // namespace browser
