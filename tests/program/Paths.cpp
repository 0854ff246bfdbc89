#include "tests/program/Paths.h"

#include <windows.h>

#include <string>

namespace program {

std::filesystem::path TestsFolder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return std::filesystem::path(path).parent_path();
}

std::filesystem::path BinFolder() {
  const wchar_t* const named = _wgetenv(L"UADMIN_BIN");
  return named != nullptr ? std::filesystem::path(named) : TestsFolder().parent_path() / L"bin";
}

std::filesystem::path FailuresFolder() {
  return TestsFolder().parent_path() / L"failures";
}

std::filesystem::path PicturesFolder() {
  return TestsFolder().parent_path() / L"pictures";
}

}  // namespace program
