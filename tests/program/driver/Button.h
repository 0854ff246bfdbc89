#pragma once

#include "tests/program/driver/Window.h"

namespace driver {

// Presses a button as its user would. Returns at once: what the button does may open a modal
// window. Throws a Failure when the button cannot be pressed.
void Press(const Window& button);

// Whether a check box or option button is on.
bool IsChecked(const Window& button);

}  // namespace driver
