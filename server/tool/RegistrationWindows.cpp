#ifdef _WIN32

#include <windows.h>

#include <olectl.h>

#include <filesystem>
#include <memory>
#include <sstream>
#include <string>

#include "data/Text.h"
#include "server/tool/Commands.h"
#include "server/tool/Registration.h"

namespace tool {
namespace {

struct LibraryCloser {
  using pointer = HMODULE;
  void operator()(HMODULE library) const { FreeLibrary(library); }
};
using Library = std::unique_ptr<void, LibraryCloser>;

constexpr const wchar_t* kServerFile = L"vardex.dll";

std::filesystem::path FolderOfTool() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return std::filesystem::path(path).parent_path();
}

std::string Describe(HRESULT result) {
  if (result == SELFREG_E_CLASS) return "another session server is registered, and stays so";
  if (result == E_ACCESSDENIED) return "an administrator must do that, or use --user";
  wchar_t text[512] = L"";
  const DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                    nullptr, static_cast<DWORD>(result), 0, text, 512, nullptr);
  std::wstring message(text, size);
  while (!message.empty() && (message.back() <= L' ' || message.back() == L'.')) message.pop_back();
  std::ostringstream line;
  line << "0x" << std::hex << static_cast<unsigned long>(result);
  if (!message.empty()) line << " (" << data::ToUtf8(message) << ")";
  return line.str();
}

template <class Function>
Function Find(HMODULE library, const char* name) {
  const FARPROC found = GetProcAddress(library, name);
  if (found == nullptr) throw CommandError(std::string("vardex.dll has no ") + name);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

HRESULT Call(HMODULE library, bool install, bool forUser) {
  if (forUser) {
    using Installer = HRESULT(WINAPI*)(BOOL, LPCWSTR);
    return Find<Installer>(library, "DllInstall")(install ? TRUE : FALSE, L"user");
  }
  using Registrar = HRESULT(WINAPI*)();
  return Find<Registrar>(library, install ? "DllRegisterServer" : "DllUnregisterServer")();
}

void ChangeRegistration(bool install, bool forUser) {
  const std::filesystem::path file = FolderOfTool() / kServerFile;
  const HMODULE raw = LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (raw == nullptr) {
    throw CommandError("vardex.dll beside this program cannot be loaded: " +
                       Describe(HRESULT_FROM_WIN32(GetLastError())));
  }
  const Library library(raw);
  const HRESULT result = Call(raw, install, forUser);
  if (FAILED(result)) {
    throw CommandError("vardex.dll refused: " + Describe(result));
  }
}

}  // namespace

void Register(const Arguments& arguments, const Surroundings&) {
  ChangeRegistration(true, arguments.Has("--user"));
}

void Unregister(const Arguments& arguments, const Surroundings&) {
  ChangeRegistration(false, arguments.Has("--user"));
}

}  // namespace tool

#endif
