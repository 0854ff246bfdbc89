#include "tests/program/driver/Window.h"

#include "tests/program/driver/Failure.h"
#include "tests/program/driver/Wait.h"

namespace driver {
namespace {

constexpr int kLongestClassName = 256;

BOOL CALLBACK Collect(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<Window>*>(list)->emplace_back(window);
  return TRUE;
}

}  // namespace

std::wstring Window::Class() const {
  wchar_t name[kLongestClassName] = {};
  return {name, static_cast<std::size_t>(GetClassNameW(handle_, name, kLongestClassName))};
}

std::wstring Window::Text() const {
  const auto length = static_cast<std::size_t>(Send(WM_GETTEXTLENGTH));
  std::wstring text(length + 1, L'\0');
  const LRESULT got = Send(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(got));
  return text;
}

RECT Window::Rectangle() const {
  RECT rectangle{};
  GetWindowRect(handle_, &rectangle);
  return rectangle;
}

DWORD Window::ProcessId() const {
  DWORD id = 0;
  GetWindowThreadProcessId(handle_, &id);
  return id;
}

Window Window::Child(int id) const {
  const HWND child = GetDlgItem(handle_, id);
  if (child == nullptr) throw Failure("the window has no control " + std::to_string(id));
  return Window(child);
}

std::vector<Window> Window::Children() const {
  std::vector<Window> children;
  for (HWND child = GetWindow(handle_, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    children.emplace_back(child);
  }
  return children;
}

LRESULT Window::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutW(handle_, message, wParam, lParam, SMTO_NORMAL,
                          static_cast<UINT>(kPatience.count()), &result) == 0) {
    throw Failure("a window does not answer message " + std::to_string(message));
  }
  return static_cast<LRESULT>(result);
}

void Window::Post(UINT message, WPARAM wParam, LPARAM lParam) const {
  if (!PostMessageW(handle_, message, wParam, lParam)) {
    throw Failure("cannot post message " + std::to_string(message));
  }
}

PaintingHeld::PaintingHeld(const Window& control) : control_(control) {
  control_.Send(WM_SETREDRAW, FALSE);
}

// The program may have ended meanwhile, which is for the test to find out.
PaintingHeld::~PaintingHeld() {
  SendMessageTimeoutW(control_.Handle(), WM_SETREDRAW, TRUE, 0, SMTO_ABORTIFHUNG,
                      static_cast<UINT>(kPatience.count()), nullptr);
  InvalidateRect(control_.Handle(), nullptr, TRUE);
}

std::vector<Window> AllTopWindows() {
  std::vector<Window> windows;
  EnumWindows(Collect, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

std::vector<Window> TopWindows(DWORD processId,
                               const std::function<bool(const Window&)>& condition) {
  std::vector<Window> found;
  for (const Window& window : AllTopWindows()) {
    if (window.ProcessId() == processId && condition(window)) found.push_back(window);
  }
  return found;
}

Window FocusIn(const Window& window) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return GetGUIThreadInfo(window.ThreadId(), &info) ? Window(info.hwndFocus) : Window();
}

}  // namespace driver
