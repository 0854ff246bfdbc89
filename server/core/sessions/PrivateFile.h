#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace server {

// Writes a new file that its owner alone may read and write. False when it exists already or cannot
// be written.
bool WritePrivateFile(const std::filesystem::path& file, std::string_view bytes);

// A text in such a file, which on Windows is encrypted besides by the system, for the same user.
// Writing and reading fail with false and nothing.
bool WriteSecret(const std::filesystem::path& file, std::string_view text);
std::optional<std::string> ReadSecret(const std::filesystem::path& file);

}  // namespace server
