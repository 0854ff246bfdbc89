#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/program/driver/RemoteMemory.h"
#include "tests/program/driver/Window.h"

namespace driver {

// A row of tabs.
class TabStrip {
 public:
  explicit TabStrip(const Window& window);

  std::vector<std::wstring> Captions();
  int Selected() const;
  // The middle of a tab, in the control's coordinates.
  POINT Place(int tab);
  const Window& Control() const { return window_; }
  // Chooses a tab as a click on it does.
  void Select(int tab);

 private:
  Window window_;
  RemoteMemory memory_;
};

}  // namespace driver
