#pragma once

#include <string>

#include "controls/TreeNodes.h"

namespace browser {

// A node and all below it as text: a line a node, a tab a level below the first, no break at the
// end. Breaks and tabs within a node's text become blanks.
std::wstring SubtreeText(const controls::TreeNodes& nodes, controls::NodeId node);

}  // namespace browser
