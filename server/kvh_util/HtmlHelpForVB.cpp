#include "HtmlHelpForVB.h"

#include <cwchar>
#include <iterator>

namespace {

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);

// Null when the viewer is not installed; the thread's last error then says what is missing. A
// viewer once loaded is kept, since its windows outlive the call.
HtmlHelpFunction LoadViewer() {
  const HMODULE viewer = LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (viewer == nullptr) return nullptr;
  const auto function = reinterpret_cast<void (*)()>(GetProcAddress(viewer, "HtmlHelpW"));
  return reinterpret_cast<HtmlHelpFunction>(function);
}

// The length of the file's path, without the topic or the window that may follow it.
size_t PathLength(LPCWSTR file) {
  const wchar_t* const topic = std::wcsstr(file, L"::");
  const wchar_t* const window = std::wcschr(file, L'>');
  const wchar_t* end = file + std::wcslen(file);
  if (topic != nullptr && topic < end) end = topic;
  if (window != nullptr && window < end) end = window;
  return static_cast<size_t>(end - file);
}

// Some commands name no file. The viewer says nothing about one that is not there.
bool IsThere(LPCWSTR file) {
  if (file == nullptr || *file == L'\0') return true;
  wchar_t path[32768];
  const size_t length = PathLength(file);
  if (length >= std::size(path)) {
    SetLastError(ERROR_FILENAME_EXCED_RANGE);
    return false;
  }
  std::wmemcpy(path, file, length);
  path[length] = L'\0';
  return GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

HWND WINAPI HtmlHelpForVB(HWND window, LPCWSTR file, UINT command, DWORD_PTR data) {
  if (!IsThere(file)) return nullptr;
  const HtmlHelpFunction show = LoadViewer();
  if (show == nullptr) return nullptr;
  const HWND shown = show(window, file, command, data);
  SetLastError(shown == nullptr ? ERROR_NOT_FOUND : ERROR_SUCCESS);
  return shown;
}
