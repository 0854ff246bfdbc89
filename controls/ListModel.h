#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "controls/ListBox.h"

namespace controls {

// What a list box holds and does, on either back end: its items and their states, the list index,
// what a user's gesture changes, and which events that raises.
class ListModel {
 public:
  // What shows the items. It is told after the model has changed.
  class View {
   public:
    virtual void ItemAdded(int item) = 0;
    virtual void ItemRemoved(int item) = 0;
    virtual void Cleared() = 0;
    virtual void DataChanged(int item) = 0;
    virtual void IndexChanged() = 0;
    // The check or the selection of one item.
    virtual void SelectionChanged(int item) = 0;
    // Around many changes.
    virtual void UpdateBegins() = 0;
    virtual void UpdateEnds() = 0;

   protected:
    View() = default;
    ~View() = default;
    View(const View&) = default;
    View& operator=(const View&) = default;
  };

  // view may be null, where nothing is shown.
  ListModel(ListBox::Kind kind, View* view) : kind_(kind), view_(view) {}
  // Whose events are raised.
  void SetOwner(ListBox& list) { list_ = &list; }
  // The form starts another life.
  void Restart() { life_ = {}; }

  ListBox::Kind Kind() const { return kind_; }
  bool Has(int item) const { return item >= 0 && item < Count(); }
  int Count() const { return static_cast<int>(life_.items.size()); }
  const std::wstring& Text(int item) const { return At(item).text; }
  std::int32_t Data(int item) const { return At(item).data; }
  int Index() const { return life_.index; }
  bool Selected(int item) const;
  int SelectedCount() const;
  bool Updating() const { return life_.updates > 0; }

  // --- What the program does ---

  int Add(const std::wstring& text, std::int32_t data);
  void Remove(int item);
  void Clear();
  void SetData(int item, std::int32_t data);
  void SetIndex(int item);
  void SetSelected(int item, bool selected);
  void BeginUpdate();
  void EndUpdate();

  // --- What a user does ---

  // The list gets the focus.
  void TakeFocus();
  // Moves to an item, by a click on its text or with an arrow key.
  void Choose(int item);
  // Changes an item's check, or its selection alone in a multi-select list.
  void Toggle(int item);
  void Check(int item, bool checked);
  // Has selected with a native control that does so by itself: the index, -1 for none, and in a
  // multi-select list whether each item is selected.
  void TakeSelection(int index, const std::function<bool(int item)>& isSelected);
  // Types a character in a check list, at a time in milliseconds that may wrap.
  void Type(wchar_t character, std::uint32_t time);
  // Whether what was typed shortly before goes on at this time: a blank then belongs to the text
  // that is searched for and ticks nothing.
  bool IsSearching(std::uint32_t time) const;

 private:
  struct Item {
    std::wstring text;
    std::int32_t data = 0;
    bool selected = false;  // checked, in a check list; not used in a plain list
  };

  // All that ends with the form's life.
  struct Life {
    std::vector<Item> items;
    int index = -1;
    int selected = 0;  // how many items are selected or checked, but in a plain list
    int updates = 0;
    std::wstring search;      // what has been typed
    std::uint32_t typed = 0;  // when
  };

  const Item& At(int item) const { return life_.items[static_cast<std::size_t>(item)]; }
  bool Mark(int item, bool selected);
  bool MarkAlone(int item);
  int Find(const std::wstring& beginning, int from) const;
  void RaiseClick() const;
  void RaiseCheck(int item) const;

  const ListBox::Kind kind_;
  View* const view_;
  ListBox* list_ = nullptr;
  Life life_;
};

// The model of a list box; the back ends know where it is.
ListModel& ModelOf(const ListBox& list);

}  // namespace controls
