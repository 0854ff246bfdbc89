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

// Where this process looks for a library that is registered without its folder.
std::wstring SearchedFolders() {
  wchar_t program[MAX_PATH] = {};
  wchar_t system[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, program, MAX_PATH - 1);
  GetSystemDirectoryW(system, MAX_PATH);
  const std::wstring file(program);
  return file.substr(0, file.find_last_of(L'\\')) + L";" + system;
}

// The file meant; for a name without a folder one that the system would find, else none.
std::wstring Located(const std::wstring& path) {
  if (path.find_first_of(L"\\/:") != std::wstring::npos) return path;
  wchar_t found[MAX_PATH] = {};
  const DWORD length =
      SearchPathW(SearchedFolders().c_str(), path.c_str(), L".dll", MAX_PATH, found, nullptr);
  return std::wstring(found, length < MAX_PATH ? length : 0);
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
