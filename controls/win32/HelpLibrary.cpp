#include "controls/win32/HelpLibrary.h"

#include <optional>

#include "controls/win32/HelpFile.h"

namespace controls {
namespace {

constexpr const wchar_t* kLibrary = L"kvh_util.dll";
constexpr UINT kHelpContext = 0x000F;  // HH_HELP_CONTEXT

std::wstring SystemFolder() {
  wchar_t folder[MAX_PATH] = {};
  const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
  return std::wstring(folder, length < MAX_PATH ? length : 0);
}

// What the library needs itself is looked for in its own folder and in the system's.
HMODULE LoadFrom(const std::wstring& folder) {
  return LoadLibraryExW((folder + L"\\" + kLibrary).c_str(), nullptr,
                        LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
}

}  // namespace

bool HelpLibrary::Load(const std::wstring& programFolder) {
  if (module_) return true;
  module_ = LoadFrom(programFolder);
  if (!module_) module_ = LoadFrom(SystemFolder());
  if (!module_) return false;
  FARPROC found = GetProcAddress(module_, "HtmlHelpForVB");
  // By way of void*: the compiler warns of any direct cast between function types.
  function_ = reinterpret_cast<HtmlHelpForVB>(reinterpret_cast<void*>(found));
  return true;
}

HelpOutcome HelpLibrary::Show(HWND window, const std::wstring& programFolder,
                              const std::wstring& file, int topic) {
  if (!Load(programFolder)) return HelpOutcome::kLibraryMissing;
  if (!function_) return HelpOutcome::kFunctionMissing;
  if (GetFileAttributesW(file.c_str()) == INVALID_FILE_ATTRIBUTES) return HelpOutcome::kFileMissing;
  const std::optional<std::wstring> shown = ViewableHelpFile(file, HelpCopyFolder());
  if (!shown) return HelpOutcome::kFileRefused;
  const HWND viewer =
      function_(window, shown->c_str(), kHelpContext, static_cast<DWORD_PTR>(topic));
  return viewer ? HelpOutcome::kShown : HelpOutcome::kTopicMissing;
}

}  // namespace controls
