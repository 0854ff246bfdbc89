#pragma once

#include <string>

#include "controls/win32/Handles.h"
#include "tests/support/controls/Script.h"
#include "tests/support/system/ScriptedSystem.h"

namespace test_support {

// Has the system show every message box, reads there what a user would read, and presses the
// button that the script answers with.
class BoxAnswerer {
 public:
  BoxAnswerer(ScriptedSystem& system, Script& script);
  ~BoxAnswerer();
  BoxAnswerer(const BoxAnswerer&) = delete;
  BoxAnswerer& operator=(const BoxAnswerer&) = delete;

 private:
  static LRESULT CALLBACK Called(HWND window, UINT number, WPARAM wParam, LPARAM lParam,
                                 UINT_PTR id, DWORD_PTR answerer);

  int Show(const std::wstring& prompt, int style, const std::wstring& title);
  void Answer();

  ScriptedSystem& system_;
  Script& script_;
  controls::WindowHandle caller_;  // gets a message as soon as the box handles input
  int style_ = 0;
};

}  // namespace test_support
