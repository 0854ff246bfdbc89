#include "controls/memory/ListBoxPeer.h"

#include "controls/memory/Events.h"

namespace controls {

void ListBoxPeer::StartKind() {
  items.clear();
  index = -1;
  marked = 0;
}

void ListBoxPeer::PressSpace(Control& control) {
  if (kind != ListBox::Kind::kPlain && Has(index)) Toggle(static_cast<ListBox&>(control), index);
}

bool ListBoxPeer::Selected(int item) const {
  if (!Has(item)) return false;
  return kind == ListBox::Kind::kPlain ? item == index : items[item].selected;
}

bool ListBoxPeer::Mark(int item, bool selected) {
  if (items[item].selected == selected) return false;
  items[item].selected = selected;
  marked += selected ? 1 : -1;
  return true;
}

bool ListBoxPeer::MarkAlone(int item) {
  bool changed = false;
  for (int i = 0; i < static_cast<int>(items.size()); ++i) changed |= Mark(i, i == item);
  return changed;
}

void ListBoxPeer::Choose(ListBox& list, int item) {
  bool changed = index != item;
  index = item;
  if (kind == ListBox::Kind::kMultiSelect) changed |= MarkAlone(item);
  if (changed) Raise(list.Owner(), list.Click);
}

void ListBoxPeer::Toggle(ListBox& list, int item) {
  index = item;
  if (kind == ListBox::Kind::kChecked) {
    list.SetSelected(item, !Selected(item));
  } else if (Mark(item, !Selected(item))) {
    Raise(list.Owner(), list.Click);
  }
}

}  // namespace controls
