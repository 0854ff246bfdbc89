#include "tests/support/controls/win32/RowMouse.h"

namespace test_support {

void RowMouse::ClickWithControl(int place) {
  const HeldKey control(VK_CONTROL);
  input_.Click(list_.window, Place(place), MK_CONTROL);
}

void RowMouse::ClickHeading(int column) {
  HWND heading = controls::HandleIn<HWND>(list_.Send(LVM_GETHEADER));
  RECT item = {};
  SendMessageW(heading, HDM_GETITEMRECT, static_cast<WPARAM>(column), controls::AsLParam(&item));
  input_.Click(heading, {(item.left + item.right) / 2, (item.top + item.bottom) / 2});
}

POINT RowMouse::Place(int place) const {
  const auto number = static_cast<WPARAM>(place);
  list_.Send(LVM_ENSUREVISIBLE, number, FALSE);
  RECT row = {};
  row.left = LVIR_LABEL;
  list_.Send(LVM_GETITEMRECT, number, controls::AsLParam(&row));
  return {row.left + 3, (row.top + row.bottom) / 2};
}

}  // namespace test_support
