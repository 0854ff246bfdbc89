#include "com/ImageFile.h"

#include <windows.h>

#include "automation/Handle.h"

namespace com {
namespace {

#ifdef _WIN64
constexpr WORD kOwnMachine = IMAGE_FILE_MACHINE_AMD64;
#else
constexpr WORD kOwnMachine = IMAGE_FILE_MACHINE_I386;
#endif

std::wstring Located(const std::wstring& path) {
  wchar_t found[MAX_PATH] = {};
  const DWORD length = SearchPathW(nullptr, path.c_str(), L".dll", MAX_PATH, found, nullptr);
  return length == 0 || length >= MAX_PATH ? path : std::wstring(found, length);
}

automation::Handle Open(const std::wstring& path) {
  return automation::FileHandle(CreateFileW(path.c_str(), GENERIC_READ,
                                            FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                            OPEN_EXISTING, 0, nullptr));
}

bool ReadAt(HANDLE file, LONG offset, void* target, DWORD size) {
  if (SetFilePointer(file, offset, nullptr, FILE_BEGIN) == INVALID_SET_FILE_POINTER) return false;
  DWORD read = 0;
  return ReadFile(file, target, size, &read, nullptr) && read == size;
}

}  // namespace

ImageKind ReadImageKind(const std::wstring& path) {
  const automation::Handle file = Open(Located(path));
  if (file == nullptr) {
    const DWORD error = GetLastError();
    const bool missing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
    return missing ? ImageKind::kMissing : ImageKind::kUnknown;
  }
  IMAGE_DOS_HEADER start{};
  struct {
    DWORD signature;
    IMAGE_FILE_HEADER header;
  } image{};
  if (!ReadAt(file.get(), 0, &start, sizeof start) || start.e_magic != IMAGE_DOS_SIGNATURE ||
      !ReadAt(file.get(), start.e_lfanew, &image, sizeof image) ||
      image.signature != IMAGE_NT_SIGNATURE) {
    return ImageKind::kUnknown;
  }
  return image.header.Machine == kOwnMachine ? ImageKind::kOwnMachine : ImageKind::kOtherMachine;
}

}  // namespace com
