#pragma once

#include "controls/win32/Handles.h"

namespace controls {

// An icon of the program's resources in this size, in pixels. A size that it was not drawn in is
// made from the next larger one; empty where there is no such icon.
IconHandle LoadIconOfSize(int resource, int size);

}  // namespace controls
