#ifndef _WIN32

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

#include "server/core/sessions/PrivateFile.h"

namespace server {

bool WritePrivateFile(const std::filesystem::path& file, std::string_view bytes) {
  const int handle = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (handle < 0) return false;
  const ssize_t written = write(handle, bytes.data(), bytes.size());
  const bool closed = close(handle) == 0;
  return closed && written == static_cast<ssize_t>(bytes.size());
}

bool WriteSecret(const std::filesystem::path& file, std::string_view text) {
  return WritePrivateFile(file, text);
}

std::optional<std::string> ReadSecret(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

}  // namespace server

#endif
