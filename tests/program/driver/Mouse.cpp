#include "tests/program/driver/Mouse.h"

namespace driver {

void Click(const Window& control, POINT place) {
  const LPARAM where = MAKELPARAM(place.x, place.y);
  control.Post(WM_LBUTTONDOWN, MK_LBUTTON, where);
  control.Post(WM_LBUTTONUP, 0, where);
}

void DoubleClick(const Window& control, POINT place) {
  const LPARAM where = MAKELPARAM(place.x, place.y);
  Click(control, place);
  control.Post(WM_LBUTTONDBLCLK, MK_LBUTTON, where);
  control.Post(WM_LBUTTONUP, 0, where);
}

POINT Middle(const RECT& rectangle) {
  return {(rectangle.left + rectangle.right) / 2, (rectangle.top + rectangle.bottom) / 2};
}

}  // namespace driver
