#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace server {

// Whether the system knows a group of that name, in UTF-8; on Windows it may be a domain's.
bool IsGroup(std::string_view name);

// Writes a new file that its owner may read and write and, where a group is named, its members may
// read. On Windows the system and the administrators may do with it what the owner may; nobody else
// gets in. False when the file exists already or cannot be written, or nobody knows the group.
bool WritePrivateFile(const std::filesystem::path& file, std::string_view bytes,
                      std::string_view group = {});

// A text in such a file, which on Windows is encrypted besides by the system, for this machine: who
// may read it is told by the file. Writing and reading fail with false and nothing.
bool WriteSecret(const std::filesystem::path& file, std::string_view text,
                 std::string_view group = {});
std::optional<std::string> ReadSecret(const std::filesystem::path& file);

}  // namespace server
