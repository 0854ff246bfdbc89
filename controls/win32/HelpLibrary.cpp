#include "controls/win32/HelpLibrary.h"

namespace controls {
namespace {

constexpr const wchar_t* kLibrary = L"kvh_util.dll";
constexpr UINT kHelpContext = 0x000F;  // HH_HELP_CONTEXT

}  // namespace

bool HelpLibrary::Load(const std::wstring& programFolder) {
  if (module_) return true;
  module_ = LoadLibraryExW((programFolder + L"\\" + kLibrary).c_str(), nullptr,
                           LOAD_WITH_ALTERED_SEARCH_PATH);
  if (!module_) module_ = LoadLibraryW(kLibrary);
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
  const HWND viewer = function_(window, file.c_str(), kHelpContext, static_cast<DWORD_PTR>(topic));
  return viewer ? HelpOutcome::kShown : HelpOutcome::kTopicMissing;
}

}  // namespace controls
