#include "dialogs/ListItems.h"

#include <unordered_set>

#include "data/Text.h"

namespace dialogs {

using controls::ListBox;

std::wstring TrimmedName(std::int32_t /*id*/, const std::wstring& name) {
  return std::wstring(data::Trim(name));
}

void FillList(ListBox& list, data::Connection& connection, std::wstring_view statement,
              const TextOfRow& textOf) {
  const auto rows = connection.OpenResultSet(statement);
  const ListBox::Update update(list);
  list.Clear();
  for (; !rows->EndOfRows(); rows->MoveNext()) {
    const std::int32_t id = rows->Column(0).Integer();
    list.AddItem(textOf(id, rows->Column(1).Text()), id);
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

std::vector<std::int32_t> SelectedData(const ListBox& list) {
  std::vector<std::int32_t> selected;
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.Selected(i)) selected.push_back(list.ItemData(i));
  }
  return selected;
}

void CheckAll(ListBox& list, bool checked) {
  const ListBox::Update update(list);
  for (int i = 0; i < list.ListCount(); ++i) list.SetSelected(i, checked);
}

void CheckItems(controls::ListBox& list, const std::vector<std::int32_t>& itemData) {
  const std::unordered_set<std::int32_t> wanted(itemData.begin(), itemData.end());
  const controls::ListBox::Update update(list);
  for (int i = 0; i < list.ListCount(); ++i) {
    if (wanted.contains(list.ItemData(i))) list.SetSelected(i, true);
  }
}

void SelectNone(ListBox& list) {
  int selected = list.SelCount();  // counting walks through the list
  for (int i = 0; selected > 0; ++i) {
    if (!list.Selected(i)) continue;
    list.SetSelected(i, false);
    --selected;
  }
}

void SelectOnly(ListBox& list, int item) {
  SelectNone(list);
  list.SetSelected(item, true);
  list.SetListIndex(item);
}

}  // namespace dialogs
