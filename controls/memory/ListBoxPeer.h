#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/ListBox.h"
#include "controls/memory/ControlPeer.h"

namespace controls {

struct ListBoxPeer : Control::Peer {
  struct Item {
    std::wstring text;
    std::int32_t data = 0;
    bool selected = false;  // checked, in a check list; not used in a plain list
  };

  explicit ListBoxPeer(ListBox::Kind listKind) : kind(listKind) {}

  bool TakesFocus() const override { return true; }
  void PressSpace(Control& control) override;
  bool Has(int item) const { return item >= 0 && item < static_cast<int>(items.size()); }
  bool Selected(int item) const;
  // Notes an item's state; false when it was that already.
  bool Mark(int item, bool selected);

  // What the mouse does to an item's text, and to its check or with the control key held.
  void Choose(ListBox& list, int item);
  void Toggle(ListBox& list, int item);

  const ListBox::Kind kind;
  std::vector<Item> items;
  int index = -1;
  int marked = 0;  // how many items are selected or checked, but in a plain list

 protected:
  void StartKind() override;

 private:
  bool MarkAlone(int item);
};

}  // namespace controls
