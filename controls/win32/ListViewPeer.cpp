#include "controls/win32/ListViewPeer.h"

#include <algorithm>

#include "controls/win32/FormPeer.h"

namespace controls {
namespace {

constexpr int kAllItems = -1;
constexpr UINT kFocusedAndSelected = LVIS_FOCUSED | LVIS_SELECTED;

bool IsDown(int keyCode) {
  return GetKeyState(keyCode) < 0;
}

bool WithControlAlone() {
  return IsDown(VK_CONTROL) && !IsDown(VK_SHIFT) && !IsDown(VK_MENU);
}

}  // namespace

void ListViewPeer::Attached() {
  SetWindowTheme(window, L"Explorer", nullptr);
  SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP, true);
  BufferingChanged();
}

void ListViewPeer::SetExtendedStyle(DWORD styles, bool on) const {
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, styles, on ? styles : 0);
}

void ListViewPeer::BufferingChanged() {
  SetExtendedStyle(LVS_EX_DOUBLEBUFFER, Buffers());
}

void ListViewPeer::Detached() {
  model.Restart();
  name_.Reset();
  columnsSized_ = false;
}

void ListViewPeer::ShowAccessibleName() {
  if (window) name_.Set(window, CHILDID_SELF, state.accessibleName);
}

void ListViewPeer::DpiChanged() {
  columnsSized_ = false;
  FitColumns();
}

HWND ListViewPeer::Heading() const {
  return HandleIn<HWND>(Send(LVM_GETHEADER));
}

void ListViewPeer::ColumnsChanged() {
  const ProgramChange change(*this);
  while (Send(LVM_DELETECOLUMN, 0)) {
  }
  int place = 0;
  for (const ListView::Column& column : model.Columns()) {
    LVCOLUMNW native = {};
    native.mask = LVCF_TEXT | LVCF_FMT;
    native.fmt = column.isNumber ? LVCFMT_RIGHT : LVCFMT_LEFT;
    native.pszText = const_cast<wchar_t*>(column.caption.c_str());  // which is only read
    Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(place++), AsLParam(&native));
  }
  columnsSized_ = false;
  FitColumns();
  OrderChanged();
}

// All of the width is given away, so that nobody has to scroll sideways.
void ListViewPeer::FitColumns() {
  const std::vector<ListView::Column>& columns = model.Columns();
  if (!window || columnsSized_ || columns.empty()) return;
  const ProgramChange change(*this);
  RECT client = {};
  GetClientRect(window, &client);
  int shares = 0;
  for (const ListView::Column& column : columns) shares += column.share;
  LONG left = client.right;
  for (std::size_t i = columns.size(); i-- > 0;) {
    const LONG width = i == 0 ? left : MulDiv(client.right, columns[i].share, std::max(shares, 1));
    Send(LVM_SETCOLUMNWIDTH, i, width);
    left -= width;
  }
}

void ListViewPeer::RowsChanged() {
  if (!window) return;
  const ProgramChange change(*this);
  Send(WM_SETREDRAW, FALSE);
  SetState(kAllItems, 0, kFocusedAndSelected);
  Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(model.ShownCount()));
  ShowSelection();
  Send(WM_SETREDRAW, TRUE);
  InvalidateRect(window, nullptr, TRUE);
}

void ListViewPeer::SelectionChanged() {
  const ProgramChange change(*this);
  SetState(kAllItems, 0, kFocusedAndSelected);
  ShowSelection();
}

void ListViewPeer::ShowSelection() const {
  const std::vector<int> selected = model.SelectedRows();
  if (!selected.empty() && static_cast<int>(selected.size()) == model.ShownCount()) {
    SetState(kAllItems, LVIS_SELECTED, LVIS_SELECTED);
  } else {
    for (const int row : selected) SetState(model.PlaceOf(row), LVIS_SELECTED, LVIS_SELECTED);
  }
  const int place = model.PlaceOf(model.Index());
  if (place < 0) return;
  SetState(place, LVIS_FOCUSED, LVIS_FOCUSED);
  Send(LVM_SETSELECTIONMARK, 0, place);
  Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(place), FALSE);
}

void ListViewPeer::SetState(int place, UINT bits, UINT mask) const {
  LVITEMW item = {};
  item.state = bits;
  item.stateMask = mask;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(place), AsLParam(&item));
}

void ListViewPeer::OrderChanged() {
  HWND heading = Heading();
  for (std::size_t i = 0; i < model.Columns().size(); ++i) {
    HDITEMW item = {};
    item.mask = HDI_FORMAT;
    SendMessageW(heading, HDM_GETITEMW, i, AsLParam(&item));
    item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    if (static_cast<int>(i) == model.SortColumn()) {
      item.fmt |= model.SortDescending() ? HDF_SORTDOWN : HDF_SORTUP;
    }
    SendMessageW(heading, HDM_SETITEMW, i, AsLParam(&item));
  }
}

LRESULT ListViewPeer::Notify(NMHDR& header) {
  switch (header.code) {
    case LVN_GETDISPINFOW:
      GiveText(NotificationIn<NMLVDISPINFOW>(header).item);
      return 0;
    case LVN_COLUMNCLICK:
      if (TakesInput()) model.ClickHeading(NotificationIn<const NMLISTVIEW>(header).iSubItem);
      return 0;
    case LVN_ITEMCHANGED:
      if (programChanges_ == 0) Changed(NotificationIn<const NMLISTVIEW>(header));
      return 0;
    case LVN_ODSTATECHANGED: {
      const auto& change = NotificationIn<const NMLVODSTATECHANGE>(header);
      if (programChanges_ == 0 && ((change.uNewState ^ change.uOldState) & LVIS_SELECTED)) {
        model.TakeSelection(change.iFrom, change.iTo, (change.uNewState & LVIS_SELECTED) != 0);
      }
      return 0;
    }
    case NM_DBLCLK:
      if (NotificationIn<const NMITEMACTIVATE>(header).iItem >= 0 && TakesInput()) model.Activate();
      return 0;
    default:
      return 0;
  }
}

void ListViewPeer::GiveText(LVITEMW& item) const {
  if (!(item.mask & LVIF_TEXT) || !item.pszText || item.cchTextMax <= 0) return;
  const std::wstring& text = model.Text(model.RowAt(item.iItem), item.iSubItem);
  lstrcpynW(item.pszText, text.c_str(), item.cchTextMax);
}

// The user has moved to a row, or selected or unselected one, or all.
void ListViewPeer::Changed(const NMLISTVIEW& change) {
  if (!(change.uChanged & LVIF_STATE)) return;
  if ((change.uNewState ^ change.uOldState) & LVIS_SELECTED) {
    const bool all = change.iItem == kAllItems;
    model.TakeSelection(all ? 0 : change.iItem, all ? model.ShownCount() - 1 : change.iItem,
                        (change.uNewState & LVIS_SELECTED) != 0);
  }
  if (change.uNewState & ~change.uOldState & LVIS_FOCUSED) model.TakeIndex(change.iItem);
}

LRESULT ListViewPeer::Handle(const Message& message) {
  if (message.number == WM_KEYDOWN && Key(message)) return 0;
  // A letter would be looked for in texts that the control does not have, and beeped at.
  if (message.number == WM_CHAR) return 0;
  if (message.number == WM_SETFOCUS) {
    {
      const ProgramChange change(*this);
      Native(message);
    }
    return FocusArrived();
  }
  const LRESULT result = Peer::Handle(message);
  if (message.number == WM_SIZE) FitColumns();
  if (message.number == WM_NOTIFY) HeadingTold(StructIn<const NMHDR>(message.lParam));
  return result;
}

bool ListViewPeer::Key(const Message& message) {
  if (!WithControlAlone()) return false;
  const bool copy = message.wParam == 'C' || message.wParam == VK_INSERT;
  if (!copy && message.wParam != 'A') return false;
  if (!TakesInput()) return true;
  if (copy) {
    model.AskForCopy();
  } else {
    model.SelectAll();
  }
  return true;
}

void ListViewPeer::HeadingTold(const NMHDR& header) {
  if (programChanges_ > 0 || header.hwndFrom != Heading()) return;
  if (header.code == HDN_ENDTRACKW || header.code == HDN_ENDTRACKA ||
      header.code == HDN_DIVIDERDBLCLICKW || header.code == HDN_DIVIDERDBLCLICKA) {
    columnsSized_ = true;
  }
}

}  // namespace controls
