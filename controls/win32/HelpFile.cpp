#include "controls/win32/HelpFile.h"

#include <windows.h>
// windows.h comes first: the header below needs its types.
#include <shlobj.h>

#include <memory>
#include <string_view>

namespace controls {
namespace {

constexpr const wchar_t* kMark = L":Zone.Identifier";
constexpr std::string_view kZone = "ZoneId=";
constexpr char kOwnMachine = '0';
constexpr const wchar_t* kFolder = L"\\User Administration\\Help";

// A help file of more than that is none of ours.
constexpr DWORD kMostBytes = 64U << 20;

struct FileCloser {
  void operator()(HANDLE file) const { CloseHandle(file); }
};
using File = std::unique_ptr<std::remove_pointer_t<HANDLE>, FileCloser>;

File Open(const std::wstring& path, DWORD access, DWORD disposition) {
  HANDLE file = CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                            disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  return File(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

std::optional<std::string> ReadAll(const std::wstring& path) {
  const File file = Open(path, GENERIC_READ, OPEN_EXISTING);
  LARGE_INTEGER size = {};
  if (!file || !GetFileSizeEx(file.get(), &size) || size.QuadPart > kMostBytes) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
  DWORD read = 0;
  if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) ||
      read != bytes.size()) {
    return std::nullopt;
  }
  return bytes;
}

bool WriteAll(const std::wstring& path, const std::string& bytes) {
  const File file = Open(path, GENERIC_WRITE, CREATE_ALWAYS);
  DWORD written = 0;
  return file &&
         WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
         written == bytes.size();
}

// A mark that does not say where the file comes from is taken for one of a download.
bool IsMarked(const std::wstring& file) {
  const std::optional<std::string> mark = ReadAll(file + kMark);
  if (!mark) return false;
  const std::size_t place = mark->find(kZone);
  return place == std::string::npos || place + kZone.size() >= mark->size() ||
         (*mark)[place + kZone.size()] != kOwnMachine;
}

// The path without the drive letters and links that lead to the file; empty when nobody tells.
std::wstring FinalPath(const std::wstring& path) {
  const File file = Open(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING);
  if (!file) return {};
  std::wstring final(32768, L'\0');
  const DWORD length = GetFinalPathNameByHandleW(file.get(), final.data(),
                                                 static_cast<DWORD>(final.size()), VOLUME_NAME_DOS);
  final.resize(length < final.size() ? length : 0);
  return final;
}

bool IsOnRemoteDrive(const std::wstring& file) {
  std::wstring volume(32768, L'\0');
  return GetVolumePathNameW(file.c_str(), volume.data(), static_cast<DWORD>(volume.size())) &&
         GetDriveTypeW(volume.c_str()) == DRIVE_REMOTE;
}

bool HoldsViewable(const std::wstring& file, const std::string& bytes) {
  return ReadAll(file) == bytes && !IsRefusedByViewer(file);
}

// Written beside its place first: nobody is ever shown half a file. The bytes alone are copied; a
// copy by the system would take the mark along.
bool Replace(const std::wstring& file, const std::string& bytes) {
  const std::wstring fresh = file + L"." + std::to_wstring(GetCurrentProcessId());
  if (WriteAll(fresh, bytes) &&
      MoveFileExW(fresh.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING)) {
    return true;
  }
  DeleteFileW(fresh.c_str());
  return false;
}

}  // namespace

bool NamesAnotherMachine(const std::wstring& path) {
  const std::wstring_view view = path;
  if (view.starts_with(L"\\\\?\\UNC\\")) return true;
  return view.starts_with(L"\\\\") && !view.starts_with(L"\\\\?\\") &&
         !view.starts_with(L"\\\\.\\");
}

bool IsRefusedByViewer(const std::wstring& file) {
  return IsMarked(file) || NamesAnotherMachine(file) || NamesAnotherMachine(FinalPath(file)) ||
         IsOnRemoteDrive(file);
}

// An earlier copy is good only as long as it is, byte for byte, what lies beside the program now.
std::optional<std::wstring> ViewableHelpFile(const std::wstring& file, const std::wstring& folder) {
  if (!IsRefusedByViewer(file)) return file;
  const std::optional<std::string> bytes = ReadAll(file);
  if (!bytes || folder.empty()) return std::nullopt;
  const std::wstring copy = folder + file.substr(file.find_last_of(L'\\'));
  if (HoldsViewable(copy, *bytes)) return copy;
  SHCreateDirectoryExW(nullptr, folder.c_str(), nullptr);
  if (!Replace(copy, *bytes) || !HoldsViewable(copy, *bytes)) return std::nullopt;
  return copy;
}

std::wstring HelpCopyFolder() {
  wchar_t* found = nullptr;
  const HRESULT result =
      SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_DEFAULT, nullptr, &found);
  const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> freed(found, &CoTaskMemFree);
  return SUCCEEDED(result) ? found + std::wstring(kFolder) : std::wstring();
}

}  // namespace controls
