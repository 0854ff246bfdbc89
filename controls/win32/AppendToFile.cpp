#include "controls/AppendToFile.h"

#include <filesystem>
#include <system_error>

#include "controls/win32/Handles.h"

namespace controls {
namespace {

class FileHandle {
 public:
  explicit FileHandle(const std::filesystem::path& path)
      : handle_(CreateFileW(path.c_str(), FILE_APPEND_DATA | FILE_READ_DATA | SYNCHRONIZE,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~FileHandle() {
    if (IsOpen()) CloseHandle(handle_);
  }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_;
};

// Given the right to append and not to write, Windows finds the end as it writes. Systems that do
// that in two steps, and shares on them, need a lock: on a byte that no file ever has, so that it
// is in nobody's way. Who holds it is waited for, but not for ever.
class AppendLock {
 public:
  explicit AppendLock(HANDLE file) : file_(file) {
    const ULONGLONG end = GetTickCount64() + kMostWaiting;
    do {
      OVERLAPPED place = Place();
      held_ = LockFileEx(file_, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                         &place) != 0;
      if (!held_) Sleep(1);
    } while (!held_ && GetTickCount64() < end);
  }
  ~AppendLock() {
    OVERLAPPED place = Place();
    if (held_) UnlockFileEx(file_, 0, 1, 0, &place);
  }
  AppendLock(const AppendLock&) = delete;
  AppendLock& operator=(const AppendLock&) = delete;

 private:
  static constexpr ULONGLONG kMostWaiting = 2000;  // milliseconds

  static OVERLAPPED Place() {
    OVERLAPPED place = {};
    place.Offset = 0xFFFFFFFE;
    place.OffsetHigh = 0x7FFFFFFF;
    return place;
  }

  HANDLE file_;
  bool held_ = false;
};

}  // namespace

bool AppendToFile(const std::wstring& folder, const std::wstring& name, std::string_view bytes) {
  const std::filesystem::path path(folder);
  std::error_code ignored;
  std::filesystem::create_directories(path, ignored);
  const FileHandle file(path / name);
  if (!file.IsOpen()) return false;
  const AppendLock lock(file.Get());
  DWORD written = 0;
  return WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
         written == bytes.size() && FlushFileBuffers(file.Get());
}

}  // namespace controls
