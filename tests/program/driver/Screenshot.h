#pragma once

#include <windows.h>

#include <filesystem>

namespace driver {

// Writes what an area of the screen shows into a bitmap file. False, and no file, where there is
// nothing to see: without a display the screen is one single colour.
bool SaveScreenshot(const RECT& area, const std::filesystem::path& file);
bool SaveScreenshot(const std::filesystem::path& file);

}  // namespace driver
