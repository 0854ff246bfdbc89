#pragma once

#include <windows.h>

#include "controls/AnchorLayout.h"

namespace controls {

// The height of a line in a window's font.
int LineHeight(HWND window);

// A native control of a form whose design has it at this place: how far it can give way where the
// form is too small, without its text being cut off. Its anchors are left to the caller.
AnchorLayout::Item ItemOf(HWND control, const Area& place, int line);

}  // namespace controls
