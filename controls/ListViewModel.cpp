#include "controls/ListViewModel.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>

#include "controls/Desktop.h"
#include "controls/Events.h"
#include "controls/SortKey.h"

namespace controls {
namespace {

// What would begin another line or cell, on view as well as on the clipboard, is a blank.
std::wstring InOneLine(std::wstring text) {
  std::ranges::replace_if(
      text,
      [](wchar_t unit) {
        return unit < L' ' || unit == 0x7F || unit == 0x85 || unit == 0x2028 || unit == 0x2029;
      },
      L' ');
  return text;
}

// What is no number stands before all numbers.
std::int64_t NumberIn(const std::wstring& text) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max() / 10 - 1;
  const bool negative = text.starts_with(L'-');
  std::int64_t number = 0;
  bool any = false;
  for (std::size_t i = negative ? 1 : 0; i < text.size(); ++i) {
    if (text[i] < L'0' || text[i] > L'9' || number > kMost) break;
    number = 10 * number + (text[i] - L'0');
    any = true;
  }
  if (!any) return std::numeric_limits<std::int64_t>::min();
  return negative ? -number : number;
}

// Rows with equal keys keep their order, in either direction.
template <typename Key>
void SortByKeys(std::vector<int>& rows, const std::vector<Key>& keys, bool descending) {
  const auto key = [&keys](int row) -> const Key& { return keys[static_cast<std::size_t>(row)]; };
  if (descending) {
    std::ranges::stable_sort(rows, std::ranges::greater(), key);
  } else {
    std::ranges::stable_sort(rows, std::ranges::less(), key);
  }
}

}  // namespace

bool ListViewModel::HasColumn(int column) const {
  return column >= 0 && column < static_cast<int>(life_.columns.size());
}

const std::wstring& ListViewModel::Text(int row, int column) const {
  static const std::wstring kNothing;
  if (!HasRow(row) || !HasColumn(column)) return kNothing;
  return TextAt(row, static_cast<std::size_t>(column));
}

const std::wstring& ListViewModel::TextAt(int row, std::size_t text) const {
  static const std::wstring kNothing;
  const ListView::Row& texts = At(row).texts;
  return text < texts.size() ? texts[text] : kNothing;
}

int ListViewModel::RowAt(int place) const {
  return HasPlace(place) ? life_.shown[static_cast<std::size_t>(place)] : -1;
}

int ListViewModel::PlaceOf(int row) const {
  return HasRow(row) ? At(row).place : -1;
}

std::vector<int> ListViewModel::SelectedRows() const {
  std::vector<int> selected;
  std::ranges::copy_if(life_.shown, std::back_inserter(selected),
                       [this](int row) { return At(row).selected; });
  return selected;
}

void ListViewModel::SetColumns(std::vector<ListView::Column> columns) {
  life_ = {};
  life_.columns = std::move(columns);
  if (!view_) return;
  view_->RowsChanged();
  view_->ColumnsChanged();
}

void ListViewModel::SetRows(std::vector<ListView::Row> rows) {
  life_.rows.clear();
  life_.rows.reserve(rows.size());
  for (ListView::Row& row : rows) {
    for (std::wstring& text : row) text = InOneLine(std::move(text));
    life_.rows.push_back({.texts = std::move(row)});
  }
  life_.index = -1;
  PutInOrder();
  UpdateView();
}

void ListViewModel::PutInOrder() {
  life_.order.resize(life_.rows.size());
  std::iota(life_.order.begin(), life_.order.end(), 0);
  if (!HasColumn(life_.sortColumn)) return;
  const auto& column = life_.columns[static_cast<std::size_t>(life_.sortColumn)];
  const auto text =
      static_cast<std::size_t>(column.sortedBy < 0 ? life_.sortColumn : column.sortedBy);
  if (column.isNumber) {
    SortByNumber(text);
  } else {
    SortByText(text);
  }
}

void ListViewModel::SortByNumber(std::size_t text) {
  std::vector<std::int64_t> keys;
  keys.reserve(life_.rows.size());
  for (int row = 0; row < RowCount(); ++row) keys.push_back(NumberIn(TextAt(row, text)));
  SortByKeys(life_.order, keys, life_.descending);
}

void ListViewModel::SortByText(std::size_t text) {
  std::vector<std::string> keys;
  keys.reserve(life_.rows.size());
  for (int row = 0; row < RowCount(); ++row) keys.push_back(SortKey(TextAt(row, text)));
  SortByKeys(life_.order, keys, life_.descending);
}

// Puts the rows on view that are visible, in their order.
void ListViewModel::UpdateView() {
  life_.shown.clear();
  for (const int row : life_.order) {
    Item& item = At(row);
    item.place = item.visible ? ShownCount() : -1;
    item.selected &= item.visible;
    if (item.visible) life_.shown.push_back(row);
  }
  if (PlaceOf(life_.index) < 0) life_.index = -1;
  if (view_) view_->RowsChanged();
}

void ListViewModel::Filter(const std::function<bool(int row)>& shows) {
  for (int row = 0; row < RowCount(); ++row) At(row).visible = shows(row);
  UpdateView();
}

void ListViewModel::Sort(int column, bool descending) {
  life_.sortColumn = HasColumn(column) ? column : -1;
  life_.descending = descending && life_.sortColumn >= 0;
  PutInOrder();
  UpdateView();
  if (view_) view_->OrderChanged();
}

void ListViewModel::SelectAlone(int row) {
  for (Item& item : life_.rows) item.selected = false;
  if (HasRow(row)) At(row).selected = true;
}

void ListViewModel::SetIndex(int row) {
  life_.index = PlaceOf(row) >= 0 ? row : -1;
  SelectAlone(life_.index);
  if (view_) view_->SelectionChanged();
}

void ListViewModel::TakeFocus() {
  if (life_.index >= 0 || ShownCount() == 0) return;
  life_.index = RowAt(0);
  if (view_) view_->SelectionChanged();
}

void ListViewModel::ClickHeading(int column) {
  if (HasColumn(column)) Sort(column, column == life_.sortColumn && !life_.descending);
}

bool ListViewModel::MoveTo(int row) {
  return std::exchange(life_.index, row) != row;
}

void ListViewModel::Choose(int place) {
  if (!HasPlace(place)) return;
  const bool moved = MoveTo(RowAt(place));
  SelectAlone(life_.index);
  if (moved) RaiseClick();
}

void ListViewModel::Toggle(int place) {
  if (!HasPlace(place)) return;
  const bool moved = MoveTo(RowAt(place));
  At(life_.index).selected = !At(life_.index).selected;
  if (moved) RaiseClick();
}

void ListViewModel::SelectAll() {
  TakeSelection(0, ShownCount() - 1, true);
  if (view_) view_->SelectionChanged();
}

bool ListViewModel::Activate() {
  if (life_.index < 0 || !list_->Activate) return false;
  Raise(list_->Owner(), list_->Activate, +life_.index);
  return true;
}

void ListViewModel::TakeIndex(int place) {
  if (HasPlace(place) && MoveTo(RowAt(place))) RaiseClick();
}

void ListViewModel::TakeSelection(int first, int last, bool selected) {
  for (int place = std::max(first, 0); place <= last && HasPlace(place); ++place) {
    At(RowAt(place)).selected = selected;
  }
}

void ListViewModel::AskForCopy() {
  Desktop& desktop = list_->Owner().OwnerDesktop();
  if (ShownCount() > 0 && !desktop.SetClipboardText(CopiedText())) desktop.Beep();
}

std::wstring ListViewModel::CopiedText() const {
  std::wstring text;
  const std::vector<int> selected = SelectedRows();
  for (const int row : selected.empty() ? life_.shown : selected) AppendLine(text, row);
  return text;
}

void ListViewModel::AppendLine(std::wstring& text, int row) const {
  for (std::size_t column = 0; column < life_.columns.size(); ++column) {
    if (column > 0) text += L'\t';
    text += Text(row, static_cast<int>(column));
  }
  text += L"\r\n";
}

void ListViewModel::RaiseClick() const {
  Raise(list_->Owner(), list_->Click);
}

}  // namespace controls
