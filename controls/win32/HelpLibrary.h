#pragma once

#include <string>

#include "controls/System.h"
#include "controls/win32/Handles.h"

namespace controls {

// The product's help library kvh_util, loaded when help is first asked for: the one that lies in
// the program's folder, else the one in the system's. It is looked for nowhere else.
class HelpLibrary {
 public:
  HelpOutcome Show(HWND window, const std::wstring& programFolder, const std::wstring& file,
                   int topic);

 private:
  using HtmlHelpForVB = HWND(WINAPI*)(HWND, LPCWSTR file, UINT command, DWORD_PTR data);

  bool Load(const std::wstring& programFolder);

  // Never given back: the viewer's windows live on in the library until the process ends.
  HMODULE module_ = nullptr;
  HtmlHelpForVB function_ = nullptr;
};

}  // namespace controls
