#include "controls/win32/ListBoxPeer.h"

namespace controls {

void ListBoxPeer::Detached() {
  items.clear();
  index = -1;
  marked = 0;
  holds = 0;
}

bool ListBoxPeer::Selected(int item) const {
  if (!Has(item)) return false;
  if (kind == ListBox::Kind::kPlain) return item == index;
  return items[static_cast<std::size_t>(item)].selected;
}

bool ListBoxPeer::Mark(int item, bool selected) {
  if (At(item).selected == selected) return false;
  At(item).selected = selected;
  marked += selected ? 1 : -1;
  return true;
}

void ListBoxPeer::RaiseCheck(int item) const {
  Raise(List().ItemCheck, item);
  RaiseClick();
}

void ListBoxPeer::Hold() {
  if (holds++ == 0) Send(WM_SETREDRAW, FALSE);
}

void ListBoxPeer::LetGo() {
  if (holds == 0 || --holds > 0 || !window) return;
  Release();
  Send(WM_SETREDRAW, TRUE);
  InvalidateRect(window, nullptr, TRUE);
}

}  // namespace controls
