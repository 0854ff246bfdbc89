#pragma once

#include <string>
#include <vector>

#include "app/mGlobal.h"

namespace browser {

// Names as one says them: with commas between, and the last one after an "and".
std::wstring JoinedNames(const app::mGlobal& global, const std::vector<std::wstring>& names);

}  // namespace browser
