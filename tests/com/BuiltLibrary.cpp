#include "BuiltLibrary.h"

#include <filesystem>

namespace com_test {

std::wstring BuiltFile(const std::wstring& name) {
  std::wstring program(32768, L'\0');
  program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
  const std::filesystem::path tests = std::filesystem::path(program).parent_path();
  return (tests.parent_path() / L"bin" / name).wstring();
}

BuiltLibrary::BuiltLibrary(const std::wstring& name)
    : module_(LoadLibraryW(BuiltFile(name).c_str())) {}

}  // namespace com_test
