#ifndef _WIN32

#include <fcntl.h>
#include <unistd.h>

#include "server/core/sessions/PrivateFile.h"

namespace server {

bool WritePrivateFile(const std::filesystem::path& file, std::string_view bytes) {
  const int handle = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (handle < 0) return false;
  const ssize_t written = write(handle, bytes.data(), bytes.size());
  const bool closed = close(handle) == 0;
  return closed && written == static_cast<ssize_t>(bytes.size());
}

}  // namespace server

#endif
