#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/ListBox.h"
#include "data/SessionServer.h"

namespace dialogs {

struct ListItem {
  std::wstring text;
  std::int32_t itemData = 0;

  bool operator==(const ListItem&) const = default;
};

// The text under which a row is listed, of its identifier and the name as it is stored.
using TextOfRow = std::function<std::wstring(std::int32_t id, const std::wstring& name)>;

// The stored name without the blanks around it.
std::wstring TrimmedName(std::int32_t id, const std::wstring& name);

// Makes the rows of a statement the list's items: column 0 is the item data, and the text is what
// textOf makes of it and of the name in column 1.
void FillList(controls::ListBox& list, data::Connection& connection, std::wstring_view statement,
              const TextOfRow& textOf);

// All items of a list, in order.
std::vector<ListItem> Items(const controls::ListBox& list);

// Makes these the list's items; none is selected then.
void SetItems(controls::ListBox& list, const std::vector<ListItem>& items);

// The item data of what is checked or selected, in the order of the items.
std::vector<std::int32_t> SelectedData(const controls::ListBox& list);

// Checks, or unchecks, every item of a check list, from the first to the last.
void CheckAll(controls::ListBox& list, bool checked);

// Checks the items of a check list that have these item data; those that it does not list are left
// out.
void CheckItems(controls::ListBox& list, const std::vector<std::int32_t>& itemData);

// Takes the selection away from every item of a list in which several may be selected.
void SelectNone(controls::ListBox& list);

// Selects one item alone and scrolls to it. Not for check lists.
void SelectOnly(controls::ListBox& list, int item);

}  // namespace dialogs
