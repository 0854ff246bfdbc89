#include "tests/support/lists/Lists.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "data/Text.h"

namespace test_support {
namespace {

template <class Value>
int PlaceOf(const std::vector<Value>& values, const Value& wanted) {
  const auto found = std::find(values.begin(), values.end(), wanted);
  return found == values.end() ? -1 : static_cast<int>(found - values.begin());
}

}  // namespace

Texts TextsOf(const controls::ListBox& list) {
  Texts texts;
  for (int i = 0; i < list.ListCount(); ++i) texts.push_back(list.List(i));
  return texts;
}

Ids IdsOf(const controls::ListBox& list) {
  Ids ids;
  for (int i = 0; i < list.ListCount(); ++i) ids.push_back(list.ItemData(i));
  return ids;
}

Ids SelectedIds(const controls::ListBox& list) {
  Ids ids;
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.Selected(i)) ids.push_back(list.ItemData(i));
  }
  std::sort(ids.begin(), ids.end());
  return ids;
}

int ItemOf(const controls::ListBox& list, std::int32_t itemData) {
  const int item = PlaceOf(IdsOf(list), itemData);
  if (item < 0) ADD_FAILURE() << "no item " << itemData;
  return item;
}

int ItemOf(const controls::ListBox& list, std::wstring_view text) {
  const int item = PlaceOf(TextsOf(list), std::wstring(text));
  if (item < 0) ADD_FAILURE() << "no item \"" << data::ToUtf8(text) << "\"";
  return item;
}

}  // namespace test_support
