#pragma once

#include <string>

namespace driver {

// All top-level windows with their controls as text in UTF-8, a window a line: class, number,
// state, place, text, and what the trees and lists hold. For reading, after a test has failed.
std::string DumpWindows();

}  // namespace driver
