#pragma once

#include <windows.h>

#include "tests/program/driver/Window.h"

namespace driver {

// The tip that a process shows at this moment; no window when it shows none. Its text is the tip's.
Window ShownTip(DWORD processId);
Window AwaitTip(DWORD processId);

}  // namespace driver
