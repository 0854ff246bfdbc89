#include "tests/program/dying_server/Signs.h"

#include <windows.h>

#include <string>

namespace dying_server {

std::filesystem::path SignFile(const wchar_t* name) {
  std::wstring home(MAX_PATH, L'\0');
  home.resize(GetEnvironmentVariableW(L"VARDEX_HOME", home.data(), MAX_PATH));
  return std::filesystem::path(home) / name;
}

bool HasSign(const wchar_t* name) {
  return GetFileAttributesW(SignFile(name).c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace dying_server
