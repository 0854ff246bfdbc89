#pragma once

#include <string>

#include "controls/TreeNodes.h"

namespace browser {

// The two parts of what an account's node shows: the name, and the full name or description that
// stands after it in parentheses. Of an account whose name has parentheses itself nobody can say
// where the name ends: all of the text then is the name, and there is no addition.
std::wstring AccountName(const controls::TreeNodes& nodes, controls::NodeId account);
std::wstring AccountAddition(const controls::TreeNodes& nodes, controls::NodeId account);

}  // namespace browser
