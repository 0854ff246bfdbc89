#include "controls/win32/TreeRedraw.h"

namespace controls {

void TreeRedraw::Attach(HWND window) {
  window_ = window;
  begun_ = false;
  bars_.reset();
}

void TreeRedraw::Changing() {
  if (!begun_ || bars_) return;
  bars_.emplace(window_);
  SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
}

void TreeRedraw::End() {
  begun_ = false;
  if (!bars_) return;
  SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
  const UINT frame = bars_->End() ? RDW_FRAME : 0;
  const bool shown = bars_->Shown();
  bars_.reset();
  if (shown) RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | frame);
}

}  // namespace controls
