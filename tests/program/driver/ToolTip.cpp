#include "tests/program/driver/ToolTip.h"

#include <commctrl.h>

#include "tests/program/driver/Wait.h"

namespace driver {

Window ShownTip(DWORD processId) {
  const std::vector<Window> shown = TopWindows(processId, [](const Window& window) {
    return window.IsVisible() && window.Class() == TOOLTIPS_CLASSW;
  });
  return shown.empty() ? Window() : shown.front();
}

Window AwaitTip(DWORD processId) {
  Window tip;
  Await("a tip", [&] { return static_cast<bool>(tip = ShownTip(processId)); });
  return tip;
}

}  // namespace driver
