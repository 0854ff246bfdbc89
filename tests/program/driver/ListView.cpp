#include "tests/program/driver/ListView.h"

#include <commctrl.h>

#include "data/Text.h"
#include "tests/program/driver/Failure.h"
#include "tests/program/driver/Wait.h"

namespace driver {
namespace {

constexpr int kLongestRow = 8192;
constexpr std::size_t kRowTextAt = 256;
constexpr UINT kCheckedImage = 2;

// A check box is the state image of its row, whose number stands in these bits.
UINT StateImage(UINT state) {
  return (state & LVIS_STATEIMAGEMASK) >> 12;
}

}  // namespace

ListView::ListView(const Window& window)
    : window_(window), memory_(window.ProcessId(), kRowTextAt + kLongestRow * sizeof(wchar_t)) {}

int ListView::Count() const {
  return static_cast<int>(window_.Send(LVM_GETITEMCOUNT));
}

UINT ListView::State(int row, UINT mask) const {
  return static_cast<UINT>(window_.Send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), mask));
}

bool ListView::IsRowChecked(int row) const {
  return StateImage(State(row, LVIS_STATEIMAGEMASK)) == kCheckedImage;
}

ListRow ListView::Row(int row) {
  LVITEMW item{};
  item.mask = LVIF_TEXT | LVIF_PARAM;
  item.iItem = row;
  item.pszText = static_cast<wchar_t*>(memory_.At(kRowTextAt));
  item.cchTextMax = kLongestRow;
  memory_.Write(0, &item, sizeof item);
  if (window_.Send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory_.At(0))) == 0) {
    throw Failure("the list has no row " + std::to_string(row));
  }
  memory_.Read(0, &item, sizeof item);
  return {memory_.ReadText(kRowTextAt, kLongestRow), item.lParam, IsRowChecked(row),
          State(row, LVIS_SELECTED) != 0};
}

std::vector<ListRow> ListView::Rows() {
  std::vector<ListRow> rows;
  const int count = Count();
  for (int row = 0; row < count; ++row) rows.push_back(Row(row));
  return rows;
}

std::wstring ListView::Text(int row, int column) {
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = static_cast<wchar_t*>(memory_.At(kRowTextAt));
  item.cchTextMax = kLongestRow;
  memory_.Write(0, &item, sizeof item);
  window_.Send(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory_.At(0)));
  return memory_.ReadText(kRowTextAt, kLongestRow);
}

int ListView::Find(std::wstring_view text) {
  const int count = Count();
  for (int row = 0; row < count; ++row) {
    if (Row(row).text == text) return row;
  }
  throw Failure("the list has no row " + data::ToUtf8(text));
}

int ListView::FocusedRow() const {
  return static_cast<int>(
      window_.Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_FOCUSED, 0)));
}

std::vector<std::wstring> ListView::Checked() {
  std::vector<std::wstring> texts;
  for (const ListRow& row : Rows()) {
    if (row.checked) texts.push_back(row.text);
  }
  return texts;
}

// The box stands before everything else, and is as wide as it is high.
POINT ListView::CheckPlace(int row) {
  window_.Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  RECT place{};
  place.left = LVIR_BOUNDS;
  memory_.Write(0, &place, sizeof place);
  window_.Send(LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory_.At(0)));
  memory_.Read(0, &place, sizeof place);
  const LONG half = (place.bottom - place.top) / 2;
  return {place.left + half, place.top + half};
}

void ListView::SetState(int row, UINT state, UINT mask) {
  LVITEMW item{};
  item.state = state;
  item.stateMask = mask;
  memory_.Write(0, &item, sizeof item);
  window_.Send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory_.At(0)));
}

void ListView::Select(int row, bool selected) {
  const UINT on = selected ? LVIS_SELECTED | LVIS_FOCUSED : 0;
  SetState(row, on, LVIS_SELECTED | LVIS_FOCUSED);
}

void ListView::Toggle(int row) {
  const bool before = IsRowChecked(row);
  Select(row);
  window_.Post(WM_KEYDOWN, VK_SPACE);
  window_.Post(WM_KEYUP, VK_SPACE);
  Await("a check box to turn over", [&] { return IsRowChecked(row) != before; });
}

}  // namespace driver
