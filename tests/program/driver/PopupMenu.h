#pragma once

#include <windows.h>

#include "tests/program/driver/Window.h"

namespace driver {

// Waits until a process shows a popup menu and answers its window. The menu takes the keys that are
// pressed in the window it belongs to. Its items belong to that process alone, so a menu is worked
// as its user works it.
Window AwaitMenu(DWORD processId);
bool ShowsMenu(DWORD processId);
void AwaitNoMenu(DWORD processId);

}  // namespace driver
