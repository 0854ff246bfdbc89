#include "tests/program/driver/PopupMenu.h"

#include "tests/program/driver/Wait.h"

namespace driver {
namespace {

constexpr const wchar_t* kMenuClass = L"#32768";

std::vector<Window> Menus(DWORD processId) {
  return TopWindows(processId, [](const Window& window) {
    return window.IsVisible() && window.Class() == kMenuClass;
  });
}

}  // namespace

bool ShowsMenu(DWORD processId) {
  return !Menus(processId).empty();
}

Window AwaitMenu(DWORD processId) {
  Window menu;
  Await("a menu", [&] {
    const std::vector<Window> shown = Menus(processId);
    if (!shown.empty()) menu = shown.front();
    return !shown.empty();
  });
  return menu;
}

void AwaitNoMenu(DWORD processId) {
  Await("the menu to close", [&] { return !ShowsMenu(processId); });
}

}  // namespace driver
