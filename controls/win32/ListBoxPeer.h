#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "controls/ListBox.h"
#include "controls/win32/ControlPeer.h"

namespace controls {

// What every kind of list keeps beside its native control: the items and their states, from which
// all questions are answered. The kinds below differ in the native control that shows them.
struct ListBoxPeer : Control::Peer {
  struct Item {
    std::wstring text;
    std::int32_t data = 0;
    bool selected = false;  // checked, in a check list; not used in a plain list
  };

  ListBoxPeer(Form& owner, int controlId, ListBox::Kind listKind)
      : Peer(owner, controlId), kind(listKind) {}

  // --- The native control ---
  virtual void InsertNative(int item) = 0;
  virtual void RemoveNative(int item) = 0;
  virtual void ClearNative() = 0;
  virtual void ShowData(int item) = 0;
  virtual void ShowIndex() = 0;
  virtual void ShowSelected(int item) = 0;
  // Changes are no longer held: what has waited for that is due.
  virtual void Release() {}

  void Detached() override;

  bool Has(int item) const { return item >= 0 && item < static_cast<int>(items.size()); }
  Item& At(int item) { return items[static_cast<std::size_t>(item)]; }
  bool Selected(int item) const;
  // Notes an item's state; false when it was that already.
  bool Mark(int item, bool selected);
  void RaiseClick() const { Raise(List().Click); }
  // An item's check has changed, by whomever.
  void RaiseCheck(int item) const;
  ListBox& List() const { return static_cast<ListBox&>(*control); }
  // Stands around many changes.
  void Hold();
  void LetGo();

  const ListBox::Kind kind;
  std::vector<Item> items;
  int index = -1;
  int marked = 0;  // how many items are selected or checked, but in a plain list
  int holds = 0;
};

// Over a native list box, whose template has LBS_NOTIFY, not LBS_SORT, and LBS_EXTENDEDSEL where
// several items may be selected.
std::unique_ptr<ListBoxPeer> MakePlainList(Form& form, int id, ListBox::Kind kind);
// Over a native list view, whose template has LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL.
std::unique_ptr<ListBoxPeer> MakeCheckList(Form& form, int id);

}  // namespace controls
