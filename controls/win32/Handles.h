#pragma once

#include <windows.h>
// windows.h comes first: the headers below need its types.
#include <commctrl.h>
#include <uxtheme.h>

#include <utility>

#include "controls/win32/MessageParams.h"

namespace controls {

inline void Release(HFONT font) {
  DeleteObject(font);
}
inline void Release(HBRUSH brush) {
  DeleteObject(brush);
}
inline void Release(HBITMAP bitmap) {
  DeleteObject(bitmap);
}
inline void Release(HDC memoryContext) {
  DeleteDC(memoryContext);
}
inline void Release(HICON icon) {
  DestroyIcon(icon);
}
inline void Release(HMENU menu) {
  DestroyMenu(menu);
}
inline void Release(HIMAGELIST images) {
  ImageList_Destroy(images);
}
inline void Release(HWND window) {
  DestroyWindow(window);
}
// Which brings what has been painted into it to the window.
inline void Release(HPAINTBUFFER buffer) {
  EndBufferedPaint(buffer, TRUE);
}

// Owns a system object and gives it back at its end.
template <typename Handle>
class Owned {
 public:
  Owned() = default;
  explicit Owned(Handle handle) : handle_(handle) {}
  ~Owned() { Reset(); }
  Owned(Owned&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Owned& operator=(Owned&& other) noexcept {
    if (this != &other) Reset(std::exchange(other.handle_, nullptr));
    return *this;
  }

  Handle Get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }
  void Reset(Handle handle = nullptr) {
    if (Handle old = std::exchange(handle_, handle)) Release(old);
  }
  // The handle itself; its end is the caller's affair from now on.
  Handle Detach() { return std::exchange(handle_, nullptr); }

 private:
  Handle handle_ = nullptr;
};

using FontHandle = Owned<HFONT>;
using BrushHandle = Owned<HBRUSH>;
using BitmapHandle = Owned<HBITMAP>;
using MemoryContext = Owned<HDC>;
using IconHandle = Owned<HICON>;
using MenuHandle = Owned<HMENU>;
using ImageListHandle = Owned<HIMAGELIST>;
using WindowHandle = Owned<HWND>;
using BufferedPaint = Owned<HPAINTBUFFER>;

}  // namespace controls
