#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "controls/Control.h"

namespace controls {

// A list of items, each with a text and a 32-bit item data. Items are numbered from 0 and keep the
// order in which they were added.
//
// Letters typed in a check list move to the first item whose text begins with them; a blank among
// them belongs to the text, alone it ticks the item.
class ListBox : public Control {
 public:
  enum class Kind {
    kPlain,        // one item may be selected
    kMultiSelect,  // several items may be selected
    kChecked,      // a check box before each item; a checked item is a selected one
  };

  ListBox(Form& form, int id, Kind kind);

  // Stands around many changes: the list is painted once, at the end.
  class Update {
   public:
    explicit Update(ListBox& list);
    ~Update();
    Update(const Update&) = delete;
    Update& operator=(const Update&) = delete;

   private:
    ListBox& list_;
  };

  // The new item's number. Nothing is selected or checked by adding.
  int AddItem(const std::wstring& text, std::int32_t itemData = 0);
  // What is left keeps its checks, its selection and the list index. Removing raises nothing.
  void RemoveItem(int item);
  void Clear();
  int ListCount() const;
  std::wstring List(int item) const;
  std::int32_t ItemData(int item) const;
  void SetItemData(int item, std::int32_t data);

  // The item that has the list's focus, and that is the selected one in a plain list; -1 for none,
  // also after that item was removed. A check list without one puts it on its first item when it
  // gets the focus, without Click, so that the space bar has something to tick.
  int ListIndex() const;
  // Does not raise Click, and changes no selection but a plain list's. -1 takes the focus away.
  void SetListIndex(int item);

  // Whether an item is checked (kChecked) or selected (the other kinds).
  bool Selected(int item) const;
  // Raises ItemCheck, then Click, in a check list when the state changes.
  void SetSelected(int item, bool selected);
  int SelCount() const;

  // When the user selects another item, or takes one away from a multi-select list's selection, and
  // whenever a check has changed.
  std::function<void()> Click;
  std::function<void()> DblClick;
  // After every change of an item's check, the program's own included. A handler may set the item
  // again: the change that this makes is reported too, one that makes no difference is not.
  std::function<void(int item)> ItemCheck;
};

}  // namespace controls
