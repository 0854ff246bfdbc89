// Lists without check boxes: a native list box.

#include "controls/win32/ListBoxPeer.h"

namespace controls {
namespace {

// Item data are shown to the system as they are, sign and all.
LPARAM DataOf(const ListBoxPeer::Item& item) {
  return static_cast<LPARAM>(item.data);
}

struct PlainList : ListBoxPeer {
  using ListBoxPeer::ListBoxPeer;

  bool Several() const { return kind == ListBox::Kind::kMultiSelect; }

  void InsertNative(int item) override {
    Send(LB_INSERTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(At(item).text.c_str()));
    ShowData(item);
  }
  void RemoveNative(int item) override {
    Send(LB_DELETESTRING, static_cast<WPARAM>(item));
    if (!Several() && Send(LB_GETCURSEL) != index) ShowIndex();
  }
  void ClearNative() override { Send(LB_RESETCONTENT); }
  void ShowData(int item) override {
    Send(LB_SETITEMDATA, static_cast<WPARAM>(item), DataOf(At(item)));
  }
  void ShowIndex() override {
    if (!Several()) {
      Send(LB_SETCURSEL, static_cast<WPARAM>(index));
    } else if (index >= 0) {
      Send(LB_SETCARETINDEX, static_cast<WPARAM>(index), FALSE);
    }
  }
  // LB_SETSEL would also put the caret on an item that it selects, and scroll to it: thousands of
  // items selected in a row would scroll thousands of times.
  void ShowSelected(int item) override {
    if (Selected(item)) {
      Send(LB_SELITEMRANGEEX, static_cast<WPARAM>(item), item);
    } else {
      Send(LB_SETSEL, FALSE, item);
    }
  }

  void Command(int code) override {
    if (code == LBN_SELCHANGE && TakeOver()) RaiseClick();
    if (code == LBN_DBLCLK && index >= 0) Raise(List().DblClick);
  }

  // Reads what the user has selected; false when that is what was selected before.
  bool TakeOver() {
    const int before = index;
    index = static_cast<int>(Send(Several() ? LB_GETCARETINDEX : LB_GETCURSEL));
    if (!Has(index)) index = -1;
    bool changed = index != before;
    for (int item = 0; Several() && item < static_cast<int>(items.size()); ++item) {
      changed |= Mark(item, Send(LB_GETSEL, static_cast<WPARAM>(item)) > 0);
    }
    return changed;
  }
};

}  // namespace

std::unique_ptr<ListBoxPeer> MakePlainList(Form& form, int id, ListBox::Kind kind) {
  return std::make_unique<PlainList>(form, id, kind);
}

}  // namespace controls
