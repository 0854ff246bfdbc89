#pragma once

#include <string>

#include "controls/win32/Handles.h"

namespace controls {

// Replaces what is on the clipboard by a text, on behalf of a window of ours. False, with the
// clipboard as it was, when another program does not let go of it within a moment.
bool PutOnClipboard(HWND owner, const std::wstring& text);

}  // namespace controls
