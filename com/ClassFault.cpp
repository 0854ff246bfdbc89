#include "com/ClassFault.h"

#include <windows.h>

#include <string>

#include "com/ImageFile.h"

namespace com {
namespace {

#ifdef _WIN64
constexpr DWORD kOtherView = RRF_SUBKEY_WOW6432KEY;
#else
constexpr DWORD kOtherView = RRF_SUBKEY_WOW6464KEY;
#endif
constexpr DWORD kOwnView = 0;

// The default value of a class key below a root, with the names of environment variables in it
// replaced; empty when there is none.
std::wstring ReadDefault(HKEY root, const std::wstring& key, DWORD view) {
  DWORD bytes = 0;
  const DWORD flags = RRF_RT_REG_SZ | view;
  if (RegGetValueW(root, key.c_str(), nullptr, flags, nullptr, nullptr, &bytes) != ERROR_SUCCESS) {
    return {};
  }
  std::wstring value(bytes / sizeof(wchar_t), L'\0');
  if (RegGetValueW(root, key.c_str(), nullptr, flags, nullptr, value.data(), &bytes) !=
      ERROR_SUCCESS) {
    return {};
  }
  value.resize(value.find(L'\0') == std::wstring::npos ? value.size() : value.find(L'\0'));
  return value;
}

std::wstring ReadClassKey(const std::wstring& key, DWORD view) {
  return ReadDefault(HKEY_CLASSES_ROOT, key, view);
}

// The classes as the process sees them leave the user's own out where the process is elevated.
bool IsRegisteredForUser(const std::wstring& progId) {
  const std::wstring key = L"Software\\Classes\\" + progId + L"\\CLSID";
  return !ReadDefault(HKEY_CURRENT_USER, key, kOwnView).empty();
}

std::wstring Unquoted(const std::wstring& path) {
  if (path.size() < 2 || path.front() != L'"') return path;
  return path.substr(1, path.find(L'"', 1) - 1);
}

ClassFault FaultOfFile(const std::wstring& path) {
  switch (ReadImageKind(path)) {
    case ImageKind::kMissing:
      return ClassFault::kFileMissing;
    case ImageKind::kOtherMachine:
      return ClassFault::kWrongBitness;
    default:
      return ClassFault::kNone;
  }
}

}  // namespace

ClassFault FindClassFault(std::wstring_view progId) {
  const std::wstring name(progId);
  const std::wstring id = ReadClassKey(name + L"\\CLSID", kOwnView);
  if (id.empty()) {
    return IsRegisteredForUser(name) ? ClassFault::kForUserOnly : ClassFault::kNotRegistered;
  }
  const std::wstring key = L"CLSID\\" + id;
  const std::wstring file = ReadClassKey(key + L"\\InprocServer32", kOwnView);
  if (!file.empty()) return FaultOfFile(Unquoted(file));
  if (!ReadClassKey(key + L"\\LocalServer32", kOwnView).empty()) return ClassFault::kNone;
  const std::wstring other = ReadClassKey(key + L"\\InprocServer32", kOtherView);
  return other.empty() ? ClassFault::kNotRegistered : ClassFault::kWrongBitness;
}

}  // namespace com
