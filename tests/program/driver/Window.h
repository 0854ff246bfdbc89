#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace driver {

// A window of another process, seen from outside. A value; it owns nothing.
class Window {
 public:
  Window() = default;
  explicit Window(HWND handle) : handle_(handle) {}

  HWND Handle() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }
  bool operator==(const Window&) const = default;

  bool Exists() const { return IsWindow(handle_) != FALSE; }
  // On the screen, or it would be if its parents were.
  bool IsVisible() const { return IsWindowVisible(handle_) != FALSE; }
  bool IsEnabled() const { return IsWindowEnabled(handle_) != FALSE; }
  std::wstring Class() const;
  std::wstring Text() const;
  int Id() const { return GetDlgCtrlID(handle_); }
  LONG Style() const { return GetWindowLongW(handle_, GWL_STYLE); }
  RECT Rectangle() const;  // on the screen
  DWORD ProcessId() const;
  DWORD ThreadId() const { return GetWindowThreadProcessId(handle_, nullptr); }

  // The control of that number; throws a Failure when the window has none.
  Window Child(int id) const;
  bool HasChild(int id) const { return GetDlgItem(handle_, id) != nullptr; }
  // The direct children in their order.
  std::vector<Window> Children() const;

  // Sends a message and throws a Failure when the window does not answer in time.
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

 private:
  HWND handle_ = nullptr;
};

// Keeps a control from painting while it lives, where much is opened of which nobody looks at each
// step.
class PaintingHeld {
 public:
  explicit PaintingHeld(const Window& control);
  ~PaintingHeld();
  PaintingHeld(const PaintingHeld&) = delete;
  PaintingHeld& operator=(const PaintingHeld&) = delete;

 private:
  Window control_;
};

// The top-level windows of a process that meet the condition.
std::vector<Window> TopWindows(DWORD processId,
                               const std::function<bool(const Window&)>& condition);
std::vector<Window> AllTopWindows();

// The control that has the keyboard in the thread of this window.
Window FocusIn(const Window& window);

}  // namespace driver
