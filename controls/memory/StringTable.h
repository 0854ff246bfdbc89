#pragma once

#include <string>

namespace controls {

// A text of the program's string table; empty when the number has none.
std::wstring StringTableText(int id);

}  // namespace controls
