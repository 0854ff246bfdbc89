#pragma once

#include "controls/Control.h"
#include "controls/win32/Handles.h"

namespace controls {

// The font in a window's resolution, in dots an inch.
FontHandle MakeFont(const Font& font, unsigned dpi);

// The same font for another resolution.
FontHandle ScaleFont(HFONT font, unsigned fromDpi, unsigned toDpi);

}  // namespace controls
