#pragma once

#include <functional>

#include "controls/win32/ControlPeer.h"
#include "controls/win32/DesktopPeer.h"

namespace test_support {

// Mouse and keyboard as messages, which go the way of the program's own message loop.
class Input {
 public:
  explicit Input(controls::Desktop& desktop) : desktop_(desktop) {}

  // Presses and releases the left button over a point of the window's client area.
  void Click(HWND window, POINT place, WPARAM keys = 0);
  // The same with the right button.
  void RightClick(HWND window, POINT place);
  // The second press of a double click, the first being over.
  void ClickAgain(HWND window, POINT place);
  void KeyDown(HWND window, int keyCode);
  // A key that the system keeps for itself, such as F10.
  void SystemKeyDown(HWND window, int keyCode);
  void KeyUp(HWND window, int keyCode);
  void Character(HWND window, wchar_t character);
  // A letter with the Alt key.
  void MenuCharacter(HWND window, wchar_t character);
  void Send(HWND window, UINT number, WPARAM wParam, LPARAM lParam);

  // A click that stays in the queue until all that waits is handled.
  void ClickLater(HWND button);
  // Handles what input has set off, but no click that is to wait.
  void Drain();
  // Handles all that waits.
  void Settle();

 private:
  void Handle(UINT first, UINT last);

  controls::Desktop& desktop_;
};

// The Shift or Control key, held down, or not, as long as this lives; then as before.
class HeldKey {
 public:
  explicit HeldKey(int keyCode, bool down = true);
  ~HeldKey();
  HeldKey(const HeldKey&) = delete;
  HeldKey& operator=(const HeldKey&) = delete;

 private:
  // What it was before.
  static BYTE Set(int keyCode, BYTE state);

  int keyCode_;
  BYTE before_;
};

}  // namespace test_support
