#pragma once

#include <string>

namespace driver {

// What the clipboard holds as text; empty when it holds none.
std::wstring ClipboardText();
void ClearClipboard();

}  // namespace driver
