#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/ListBox.h"

// What a test reads of a list. Tests name items by text or item data, never by their place: the
// place is the server's to say.
namespace test_support {

using Texts = std::vector<std::wstring>;
using Ids = std::vector<std::int32_t>;

// The texts of all items, in the order of the list.
Texts TextsOf(const controls::ListBox& list);
// The item data of all items, in the order of the list.
Ids IdsOf(const controls::ListBox& list);
// The item data of what is checked or selected, in ascending order, which is that of the links that
// tests read from the database.
Ids SelectedIds(const controls::ListBox& list);

// The item with this item data or this text; fails the test and gives -1 where there is none.
int ItemOf(const controls::ListBox& list, std::int32_t itemData);
int ItemOf(const controls::ListBox& list, std::wstring_view text);

}  // namespace test_support
