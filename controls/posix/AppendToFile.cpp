#include "controls/AppendToFile.h"

#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "data/Text.h"

namespace controls {
namespace {

constexpr mode_t kOwnersOnly = 0600;

class Descriptor {
 public:
  explicit Descriptor(const std::filesystem::path& path)
      : descriptor_(open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, kOwnersOnly)) {}
  ~Descriptor() {
    if (IsOpen()) close(descriptor_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool IsOpen() const { return descriptor_ >= 0; }
  int Get() const { return descriptor_; }

 private:
  int descriptor_;
};

// Folders are joined by backslashes, as everywhere in the program.
std::filesystem::path PathOf(const std::wstring& folder) {
  std::string path = data::ToUtf8(folder);
  std::ranges::replace(path, '\\', '/');
  return path;
}

}  // namespace

bool AppendToFile(const std::wstring& folder, const std::wstring& name, std::string_view bytes) {
  const std::filesystem::path path = PathOf(folder);
  std::error_code ignored;
  std::filesystem::create_directories(path, ignored);
  const Descriptor file(path / data::ToUtf8(name));
  return file.IsOpen() &&
         write(file.Get(), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()) &&
         fsync(file.Get()) == 0;
}

}  // namespace controls
