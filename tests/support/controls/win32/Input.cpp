#include "tests/support/controls/win32/Input.h"

#include <utility>

namespace test_support {
namespace {

constexpr LPARAM kFirstTime = 1;
constexpr LPARAM kReleased = static_cast<LPARAM>(0xC0000001U);
constexpr LPARAM kWithAlt = 0x20000001;
constexpr UINT kLast = 0xFFFF;

LPARAM ScanCode(int keyCode) {
  return static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(keyCode), MAPVK_VK_TO_VSC)) << 16;
}

LPARAM At(POINT place) {
  return MAKELPARAM(place.x, place.y);
}

}  // namespace

// Both are in the queue before the first is handled: some controls wait in a loop of their own for
// the button to come up.
void Input::Click(HWND window, POINT place, WPARAM keys) {
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, At(place));
  PostMessageW(window, WM_LBUTTONUP, keys, At(place));
  Drain();
}

void Input::RightClick(HWND window, POINT place) {
  PostMessageW(window, WM_RBUTTONDOWN, MK_RBUTTON, At(place));
  PostMessageW(window, WM_RBUTTONUP, 0, At(place));
  Drain();
}

void Input::ClickAgain(HWND window, POINT place) {
  PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, At(place));
  PostMessageW(window, WM_LBUTTONUP, 0, At(place));
  Drain();
}

void Input::KeyDown(HWND window, int keyCode) {
  Send(window, WM_KEYDOWN, static_cast<WPARAM>(keyCode), ScanCode(keyCode) | kFirstTime);
  Drain();
}

void Input::SystemKeyDown(HWND window, int keyCode) {
  Send(window, WM_SYSKEYDOWN, static_cast<WPARAM>(keyCode), ScanCode(keyCode) | kFirstTime);
  Drain();
}

void Input::KeyUp(HWND window, int keyCode) {
  Send(window, WM_KEYUP, static_cast<WPARAM>(keyCode), ScanCode(keyCode) | kReleased);
  Drain();
}

void Input::Character(HWND window, wchar_t character) {
  Send(window, WM_CHAR, character, kFirstTime);
}

void Input::MenuCharacter(HWND window, wchar_t character) {
  Send(window, WM_SYSCHAR, character, kWithAlt);
  Drain();
}

void Input::Send(HWND window, UINT number, WPARAM wParam, LPARAM lParam) {
  MSG message = {};
  message.hwnd = window;
  message.message = number;
  message.wParam = wParam;
  message.lParam = lParam;
  desktop_.BackEnd().Process(message);
}

void Input::ClickLater(HWND button) {
  PostMessageW(button, BM_CLICK, 0, 0);
}

void Input::Drain() {
  Handle(0, BM_CLICK - 1);
  Handle(BM_CLICK + 1, kLast);
}

void Input::Settle() {
  Handle(0, kLast);
}

void Input::Handle(UINT first, UINT last) {
  MSG message = {};
  while (PeekMessageW(&message, nullptr, first, last, PM_REMOVE)) {
    desktop_.BackEnd().Process(message);
  }
}

HeldKey::HeldKey(int keyCode, bool down)
    : keyCode_(keyCode), before_(Set(keyCode, down ? 0x80 : 0)) {}

HeldKey::~HeldKey() {
  Set(keyCode_, before_);
}

BYTE HeldKey::Set(int keyCode, BYTE state) {
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  const BYTE before = std::exchange(keys[keyCode], state);
  SetKeyboardState(keys);
  return before;
}

}  // namespace test_support
