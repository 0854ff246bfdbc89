#pragma once

#include <filesystem>
#include <string_view>

namespace server {

// Writes a new file that its owner alone may read and write. False when it exists already or cannot
// be written.
bool WritePrivateFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace server
