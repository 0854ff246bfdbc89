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

// Adds an item for each row of a statement: column 1, trimmed, is its text and column 0 its item
// data. onRow, where given, sees the item data and the text as it is stored.
void AddRows(controls::ListBox& list, data::Connection& connection, std::wstring_view statement,
             const std::function<void(std::int32_t, std::wstring_view)>& onRow = {});

// All items of a list, in order.
std::vector<ListItem> Items(const controls::ListBox& list);

// Makes these the list's items; none is selected then.
void SetItems(controls::ListBox& list, const std::vector<ListItem>& items);

// Checks, or unchecks, every item of a check list, from the first to the last.
void CheckAll(controls::ListBox& list, bool checked);

// Selects one item alone and scrolls to it. Not for check lists.
void SelectOnly(controls::ListBox& list, int item);

}  // namespace dialogs
