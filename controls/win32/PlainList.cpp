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

  void Detached() override {
    ListBoxPeer::Detached();
    inserted_ = 0;
  }

  void InsertNative(int /*item*/) override {
    if (holds == 0) InsertWaiting();
  }
  void RemoveNative(int item) override {
    if (item < inserted_) {
      Send(LB_DELETESTRING, static_cast<WPARAM>(item));
      --inserted_;
    }
    if (!Several() && Send(LB_GETCURSEL) != index) ShowIndex();
  }
  void ClearNative() override {
    inserted_ = 0;
    Send(LB_RESETCONTENT);
  }
  void ShowData(int item) override {
    if (item < inserted_) Send(LB_SETITEMDATA, static_cast<WPARAM>(item), DataOf(At(item)));
  }
  void ShowIndex() override {
    InsertWaiting();
    if (!Several()) {
      Send(LB_SETCURSEL, static_cast<WPARAM>(index));
    } else if (index >= 0) {
      Send(LB_SETCARETINDEX, static_cast<WPARAM>(index), FALSE);
    }
  }
  // LB_SETSEL would also put the caret on an item that it selects, and scroll to it: thousands of
  // items selected in a row would scroll thousands of times.
  void ShowSelected(int item) override {
    InsertWaiting();
    if (Selected(item)) {
      Send(LB_SELITEMRANGEEX, static_cast<WPARAM>(item), item);
    } else {
      Send(LB_SETSEL, FALSE, item);
    }
  }

  void Release() override { InsertWaiting(); }

  void Command(int code) override {
    if (code == LBN_SELCHANGE && TakeOver()) RaiseClick();
    if (code == LBN_DBLCLK && index >= 0) Raise(List().DblClick);
  }

  // Reads what the user has selected; false when that is what was selected before.
  bool TakeOver() {
    InsertWaiting();
    const int before = index;
    index = static_cast<int>(Send(Several() ? LB_GETCARETINDEX : LB_GETCURSEL));
    if (!Has(index)) index = -1;
    bool changed = index != before;
    for (int item = 0; Several() && item < static_cast<int>(items.size()); ++item) {
      changed |= Mark(item, Send(LB_GETSEL, static_cast<WPARAM>(item)) > 0);
    }
    return changed;
  }

 private:
  // Gives the native control the items that it lacks. The messages go straight to it: for thousands
  // of items the way round by the system is most of the work.
  void InsertWaiting() {
    const int count = static_cast<int>(items.size());
    if (inserted_ < count) Reserve();
    for (; inserted_ < count; ++inserted_) {
      const Item& item = At(inserted_);
      Native(
          {LB_INSERTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(item.text.c_str())});
      Native({LB_SETITEMDATA, static_cast<WPARAM>(inserted_), DataOf(item)});
    }
  }

  void Reserve() const {
    const std::size_t waiting = items.size() - static_cast<std::size_t>(inserted_);
    if (waiting < 2) return;
    std::size_t characters = 0;
    for (std::size_t i = items.size() - waiting; i < items.size(); ++i) {
      characters += items[i].text.size() + 1;
    }
    Native({LB_INITSTORAGE, waiting, static_cast<LPARAM>(characters * sizeof(wchar_t))});
  }

  // How many of the items the native control has. Those that are added while changes are held wait
  // for the end of that, as they may be taken out again before.
  int inserted_ = 0;
};

}  // namespace

std::unique_ptr<ListBoxPeer> MakePlainList(Form& form, int id, ListBox::Kind kind) {
  return std::make_unique<PlainList>(form, id, kind);
}

}  // namespace controls
