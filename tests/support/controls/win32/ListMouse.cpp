#include "tests/support/controls/win32/ListMouse.h"

#include <gtest/gtest.h>

namespace test_support {

void ListMouse::Toggle(int item) {
  if (Checks()) return input_.Click(list_.window, CheckPlace(item));
  const HeldKey control(VK_CONTROL);
  input_.Click(list_.window, TextPlace(item), MK_CONTROL);
}

// Brings the item into view.
RECT ListMouse::Line(int item) const {
  RECT line = {};
  const auto number = static_cast<WPARAM>(item);
  if (Checks()) {
    list_.Send(LVM_ENSUREVISIBLE, number, FALSE);
    line.left = LVIR_BOUNDS;
    list_.Send(LVM_GETITEMRECT, number, controls::AsLParam(&line));
    return line;
  }
  list_.Send(LB_GETITEMRECT, number, controls::AsLParam(&line));
  RECT client = {};
  GetClientRect(list_.window, &client);
  if (line.top >= 0 && line.bottom <= client.bottom) return line;
  list_.Send(LB_SETTOPINDEX, number);
  list_.Send(LB_GETITEMRECT, number, controls::AsLParam(&line));
  return line;
}

POINT ListMouse::TextPlace(int item) const {
  const RECT line = Line(item);
  // Well to the right of a check box, within the window.
  RECT client = {};
  GetClientRect(list_.window, &client);
  return {client.right / 2, (line.top + line.bottom) / 2};
}

POINT ListMouse::CheckPlace(int item) const {
  const RECT line = Line(item);
  for (LONG x = line.left; x < line.right; ++x) {
    LVHITTESTINFO hit = {};
    hit.pt = {x, (line.top + line.bottom) / 2};
    list_.Send(LVM_HITTEST, 0, controls::AsLParam(&hit));
    if (hit.iItem == item && (hit.flags & LVHT_ONITEM) == LVHT_ONITEMSTATEICON) return hit.pt;
  }
  ADD_FAILURE() << "item " << item << " has no check box";
  return {line.left, line.top};
}

}  // namespace test_support
