#pragma once

#include <string>
#include <string_view>

namespace controls {

// Adds bytes to the end of a file, which is made if need be, and its folder too. All of them go in
// one write that no other program's comes between, and are on the disk when this returns. False
// when not all of them could be written; some may be there all the same.
bool AppendToFile(const std::wstring& folder, const std::wstring& name, std::string_view bytes);

}  // namespace controls
