#pragma once

#include <windows.h>

#include "tests/program/driver/Window.h"

namespace driver {

// Clicks by posted messages, at a place in the control's coordinates.
void Click(const Window& control, POINT place);
void DoubleClick(const Window& control, POINT place);

// The real mouse, at a place in the control's coordinates. The control's window is brought to the
// front first, and what comes of a click may still be on its way when the call returns.
void PointAt(const Window& control, POINT place);
void ClickAt(const Window& control, POINT place);
void RightClickAt(const Window& control, POINT place);
void DoubleClickAt(const Window& control, POINT place);

// Clicks on a button with the real mouse. Throws a Failure when the button cannot be pressed.
void ClickOn(const Window& button);

// The middle of a rectangle.
POINT Middle(const RECT& rectangle);

}  // namespace driver
