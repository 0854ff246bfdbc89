#include "controls/win32/FormMemory.h"

#include <optional>

#include "controls/Desktop.h"
#include "controls/WindowMemory.h"
#include "controls/win32/FormPlace.h"

namespace controls {
namespace {

// The monitor of the place where a window stood, or the nearest one. The window is brought there
// first: only then does it have its resolution.
void BringToMonitorOf(HWND window, const WindowMemory& memory) {
  const POINT corner = {memory.monitorLeft, memory.monitorTop};
  const Area work = WorkAreaOf(MonitorFromPoint(corner, MONITOR_DEFAULTTONEAREST));
  SetWindowPos(window, nullptr, work.left, work.top, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

Monitor MonitorOf(HWND window) {
  return {WorkAreaOf(window), GetDpiForWindow(window)};
}

}  // namespace

bool FormMemory::Restore(HWND window, const Desktop& desktop) const {
  const std::optional<WindowMemory> memory =
      name_.empty() ? std::nullopt : ReadWindowMemory(desktop.Setting(name_));
  if (!memory) return false;
  if (what_ == Form::Kept::kPlace) BringToMonitorOf(window, *memory);
  MoveWindowTo(window, PlaceOn(MonitorOf(window), *memory));
  return memory->maximised;
}

void FormMemory::Keep(HWND window, Desktop& desktop) const {
  if (name_.empty() || shown_.empty()) return;
  const std::wstring text = TextOf(window);
  if (text != shown_) desktop.KeepSetting(name_, text);
}

std::wstring FormMemory::TextOf(HWND window) const {
  const Monitor monitor = MonitorOf(window);
  WindowMemory memory = Remember(UnmaximisedAreaOf(window), IsMaximised(window), monitor);
  if (what_ == Form::Kept::kSize) {
    memory = {0, 0, {0, 0, memory.place.Width(), memory.place.Height()}, false};
  }
  return Print(memory);
}

}  // namespace controls
