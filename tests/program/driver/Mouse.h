#pragma once

#include <windows.h>

#include "tests/program/driver/Window.h"

namespace driver {

// Clicks by posted messages, at a place in the control's coordinates.
void Click(const Window& control, POINT place);
void DoubleClick(const Window& control, POINT place);

// The middle of a rectangle.
POINT Middle(const RECT& rectangle);

}  // namespace driver
