#pragma once

namespace browser {

// The two trees of the main window, by their index, which is that of their tabs as well.
inline constexpr int kUsers = 0;
inline constexpr int kGroups = 1;

}  // namespace browser
