#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <utility>

namespace controls_test {

// Is told of every message of one number that a window gets, before the window is.
class MessageWatch {
 public:
  using Seen = std::function<void(WPARAM wParam, LPARAM lParam)>;

  MessageWatch(HWND window, UINT number, Seen seen)
      : window_(window), number_(number), seen_(std::move(seen)) {
    SetWindowSubclass(window_, Watch, Id(), reinterpret_cast<DWORD_PTR>(this));
  }
  ~MessageWatch() { RemoveWindowSubclass(window_, Watch, Id()); }
  MessageWatch(const MessageWatch&) = delete;
  MessageWatch& operator=(const MessageWatch&) = delete;

 private:
  UINT_PTR Id() const { return reinterpret_cast<UINT_PTR>(this); }

  static LRESULT CALLBACK Watch(HWND window, UINT number, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                DWORD_PTR self) {
    const auto& watch = *reinterpret_cast<const MessageWatch*>(self);
    if (number == watch.number_) watch.seen_(wParam, lParam);
    return DefSubclassProc(window, number, wParam, lParam);
  }

  HWND window_;
  UINT number_;
  Seen seen_;
};

}  // namespace controls_test
