// Lists without check boxes: a native list box.

#include "controls/win32/ListBoxPeer.h"

namespace controls {
namespace {

struct PlainList : ListBoxPeer {
  using ListBoxPeer::ListBoxPeer;

  bool Several() const { return model.Kind() == ListBox::Kind::kMultiSelect; }

  void Detached() override {
    ListBoxPeer::Detached();
    inserted_ = 0;
  }

  void ItemAdded(int /*item*/) override {
    if (!model.Updating()) InsertWaiting();
  }
  void ItemRemoved(int item) override {
    if (item < inserted_) {
      Send(LB_DELETESTRING, static_cast<WPARAM>(item));
      --inserted_;
    }
    if (!Several() && Send(LB_GETCURSEL) != model.Index()) IndexChanged();
  }
  void Cleared() override {
    inserted_ = 0;
    Send(LB_RESETCONTENT);
  }
  void DataChanged(int item) override {
    if (item < inserted_) Send(LB_SETITEMDATA, static_cast<WPARAM>(item), model.Data(item));
  }
  void IndexChanged() override {
    InsertWaiting();
    const int index = model.Index();
    if (!Several()) {
      Send(LB_SETCURSEL, static_cast<WPARAM>(index));
    } else if (index >= 0) {
      Send(LB_SETCARETINDEX, static_cast<WPARAM>(index), FALSE);
    }
  }
  // LB_SETSEL would also put the caret on an item that it selects, and scroll to it: thousands of
  // items selected in a row would scroll thousands of times.
  void SelectionChanged(int item) override {
    InsertWaiting();
    if (model.Selected(item)) {
      Send(LB_SELITEMRANGEEX, static_cast<WPARAM>(item), item);
    } else {
      Send(LB_SETSEL, FALSE, item);
    }
  }

  void UpdateEnds() override {
    InsertWaiting();
    ListBoxPeer::UpdateEnds();
  }

  void Command(int code) override {
    if (code == LBN_SELCHANGE) TakeOver();
    if (code == LBN_DBLCLK && model.Index() >= 0) RaiseDblClick();
  }

  // Reads what the user has selected.
  void TakeOver() {
    InsertWaiting();
    model.TakeSelection(
        static_cast<int>(Send(Several() ? LB_GETCARETINDEX : LB_GETCURSEL)),
        [this](int item) { return Send(LB_GETSEL, static_cast<WPARAM>(item)) > 0; });
  }

 private:
  // Gives the native control the items that it lacks. The messages go straight to it: for thousands
  // of items the way round by the system is most of the work.
  void InsertWaiting() {
    const int count = model.Count();
    if (inserted_ < count) Reserve();
    for (; inserted_ < count; ++inserted_) {
      const std::wstring& text = model.Text(inserted_);
      Native({LB_INSERTSTRING, static_cast<WPARAM>(-1), AsLParam(text.c_str())});
      // As it is, sign and all.
      Native({LB_SETITEMDATA, static_cast<WPARAM>(inserted_), LPARAM{model.Data(inserted_)}});
    }
  }

  void Reserve() const {
    const int waiting = model.Count() - inserted_;
    if (waiting < 2) return;
    std::size_t characters = 0;
    for (int i = inserted_; i < model.Count(); ++i) characters += model.Text(i).size() + 1;
    Native({LB_INITSTORAGE, static_cast<WPARAM>(waiting),
            static_cast<LPARAM>(characters * sizeof(wchar_t))});
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
