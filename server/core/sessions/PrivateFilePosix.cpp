#ifndef _WIN32

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <vector>

#include "server/core/sessions/PrivateFile.h"

namespace server {
namespace {

std::optional<gid_t> FindGroup(std::string_view name) {
  std::vector<char> buffer(1 << 16);
  group entry{};
  group* found = nullptr;
  getgrnam_r(std::string(name).c_str(), &entry, buffer.data(), buffer.size(), &found);
  return found == nullptr ? std::nullopt : std::optional(found->gr_gid);
}

// The members of a group may read, once it is the file's.
bool Share(int handle, gid_t members) {
  return fchown(handle, static_cast<uid_t>(-1), members) == 0 && fchmod(handle, 0640) == 0;
}

}  // namespace

bool IsGroup(std::string_view name) {
  return FindGroup(name).has_value();
}

bool WritePrivateFile(const std::filesystem::path& file, std::string_view bytes,
                      std::string_view group) {
  const std::optional<gid_t> members = group.empty() ? std::nullopt : FindGroup(group);
  if (!group.empty() && !members) return false;
  const int handle = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (handle < 0) return false;
  const ssize_t written = write(handle, bytes.data(), bytes.size());
  const bool shared = !members || Share(handle, *members);
  const bool closed = close(handle) == 0;
  return closed && shared && written == static_cast<ssize_t>(bytes.size());
}

bool WriteSecret(const std::filesystem::path& file, std::string_view text, std::string_view group) {
  return WritePrivateFile(file, text, group);
}

std::optional<std::string> ReadSecret(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

}  // namespace server

#endif
