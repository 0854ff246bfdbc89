#include "controls/win32/ScrollBarFreeze.h"

#include <algorithm>
#include <utility>

namespace controls {

ScrollBarFreeze::ScrollBarFreeze(HWND window)
    : window_(window), shown_((GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0) {
  if (!shown_) return;
  before_ = Read();
  DefWindowProcW(window_, WM_SETREDRAW, FALSE, 0);
}

bool ScrollBarFreeze::End() {
  if (!shown_ || std::exchange(ended_, true)) return false;
  DefWindowProcW(window_, WM_SETREDRAW, TRUE, 0);
  return !Same(before_, Read());
}

ScrollBarFreeze::Bars ScrollBarFreeze::Read() const {
  Bars bars;
  const LONG_PTR style = GetWindowLongPtrW(window_, GWL_STYLE);
  bars[0].there = (style & WS_HSCROLL) != 0;
  bars[1].there = (style & WS_VSCROLL) != 0;
  for (const int bar : {SB_HORZ, SB_VERT}) {
    SCROLLINFO& values = bars[static_cast<std::size_t>(bar)].values;
    values.cbSize = sizeof values;
    values.fMask = SIF_ALL & ~SIF_TRACKPOS;
    GetScrollInfo(window_, bar, &values);
  }
  return bars;
}

bool ScrollBarFreeze::Same(const Bars& a, const Bars& b) {
  return std::equal(a.begin(), a.end(), b.begin(), [](const Bar& left, const Bar& right) {
    if (left.there != right.there) return false;
    const SCROLLINFO& x = left.values;
    const SCROLLINFO& y = right.values;
    return !left.there ||
           (x.nMin == y.nMin && x.nMax == y.nMax && x.nPage == y.nPage && x.nPos == y.nPos);
  });
}

}  // namespace controls
