#include "dialogs/ListItems.h"

#include "data/Text.h"

namespace dialogs {

using controls::ListBox;

void AddRows(ListBox& list, data::Connection& connection, std::wstring_view statement,
             const std::function<void(std::int32_t, std::wstring_view)>& onRow) {
  const ListBox::Update update(list);
  const auto rows = connection.OpenResultSet(statement);
  for (; !rows->EndOfRows(); rows->MoveNext()) {
    const std::int32_t itemData = rows->Column(0).Integer();
    const std::wstring stored = rows->Column(1).Text();
    list.AddItem(std::wstring(data::Trim(stored)), itemData);
    if (onRow) onRow(itemData, stored);
  }
  rows->Close();
}

std::vector<ListItem> Items(const ListBox& list) {
  std::vector<ListItem> items;
  const int count = list.ListCount();
  items.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) items.push_back({list.List(i), list.ItemData(i)});
  return items;
}

void SetItems(ListBox& list, const std::vector<ListItem>& items) {
  const ListBox::Update update(list);
  list.Clear();
  for (const ListItem& item : items) list.AddItem(item.text, item.itemData);
}

void CheckAll(ListBox& list, bool checked) {
  const ListBox::Update update(list);
  for (int i = 0; i < list.ListCount(); ++i) list.SetSelected(i, checked);
}

void SelectOnly(ListBox& list, int item) {
  for (int i = 0; list.SelCount() > 0; ++i) list.SetSelected(i, false);
  list.SetSelected(item, true);
  list.SetListIndex(item);
}

}  // namespace dialogs
