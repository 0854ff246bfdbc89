#include "controls/ListView.h"
#include "controls/win32/ControlPeer.h"
#include "tests/support/controls/ShownContent.h"

namespace test_support {
namespace {

constexpr int kMostRowText = 5000;

HWND HeadingOf(const controls::ListView& list) {
  return controls::HandleIn<HWND>(list.BackEnd().Send(LVM_GETHEADER));
}

int ColumnCount(const controls::ListView& list) {
  return static_cast<int>(SendMessageW(HeadingOf(list), HDM_GETITEMCOUNT, 0, 0));
}

std::wstring TextOf(const controls::ListView& list, int place, int column) {
  std::wstring text(kMostRowText, L'\0');
  LVITEMW native = {};
  native.iSubItem = column;
  native.pszText = text.data();
  native.cchTextMax = kMostRowText;
  list.BackEnd().Send(LVM_GETITEMTEXTW, static_cast<WPARAM>(place), controls::AsLParam(&native));
  text.resize(wcslen(text.c_str()));
  return text;
}

}  // namespace

std::vector<ShownRow> ShownRows(const controls::ListView& list) {
  const controls::Control::Peer& peer = list.BackEnd();
  std::vector<ShownRow> shown;
  const int count = static_cast<int>(peer.Send(LVM_GETITEMCOUNT));
  for (int place = 0; place < count; ++place) {
    std::vector<std::wstring> texts;
    for (int i = 0; i < ColumnCount(list); ++i) texts.push_back(TextOf(list, place, i));
    const auto state = static_cast<UINT>(
        peer.Send(LVM_GETITEMSTATE, static_cast<WPARAM>(place), LVIS_SELECTED | LVIS_FOCUSED));
    shown.push_back({texts, (state & LVIS_SELECTED) != 0, (state & LVIS_FOCUSED) != 0});
  }
  return shown;
}

std::vector<std::wstring> ShownHeadings(const controls::ListView& list) {
  std::vector<std::wstring> headings;
  for (int i = 0; i < ColumnCount(list); ++i) {
    wchar_t caption[100] = {};
    HDITEMW item = {};
    item.mask = HDI_FORMAT | HDI_TEXT;
    item.pszText = caption;
    item.cchTextMax = 100;
    SendMessageW(HeadingOf(list), HDM_GETITEMW, static_cast<WPARAM>(i), controls::AsLParam(&item));
    const wchar_t* const down = item.fmt & HDF_SORTDOWN ? L"-" : L"";
    headings.push_back((item.fmt & HDF_SORTUP ? L"+" : down) + std::wstring(caption));
  }
  return headings;
}

}  // namespace test_support
