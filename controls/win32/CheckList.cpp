// Lists with check boxes: a native list view, which toggles checks by itself and tells screen
// readers of them.

#include "controls/win32/ListBoxPeer.h"

namespace controls {
namespace {

constexpr UINT kUnchecked = INDEXTOSTATEIMAGEMASK(1);
constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2);

struct CheckList : ListBoxPeer {
  using ListBoxPeer::ListBoxPeer;

  // Stands around what the program itself does to the native control.
  class Own {
   public:
    explicit Own(CheckList& list) : list_(list) { ++list_.own_; }
    ~Own() { --list_.own_; }
    Own(const Own&) = delete;
    Own& operator=(const Own&) = delete;

   private:
    CheckList& list_;
  };

  void Attached() override {
    const Own own(*this);
    constexpr DWORD kExtended =
        LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | LVS_EX_DOUBLEBUFFER;
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, kExtended, kExtended);
    LVCOLUMNW column = {};
    column.mask = LVCF_WIDTH;
    column.cx = ClientWidth();
    Send(LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
  }

  // The control measures its items when it first paints them, and goes on to set its scroll bars
  // several times over. Nobody has to wait for that, or see it: it paints into nothing now.
  void Showing() override {
    const MemoryContext nothing(CreateCompatibleDC(nullptr));
    Send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(nothing.Get()), PRF_CLIENT);
  }

  void InsertNative(int item) override {
    const Own own(*this);
    LVITEMW native = {};
    native.mask = LVIF_TEXT | LVIF_PARAM;
    native.iItem = item;
    native.pszText = At(item).text.data();
    native.lParam = At(item).data;
    Send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&native));
  }
  void RemoveNative(int item) override {
    const Own own(*this);
    Send(LVM_DELETEITEM, static_cast<WPARAM>(item));
    ShowIndex();
  }
  void ClearNative() override {
    const Own own(*this);
    Send(LVM_DELETEALLITEMS);
  }
  void ShowData(int item) override {
    LVITEMW native = {};
    native.mask = LVIF_PARAM;
    native.iItem = item;
    native.lParam = At(item).data;
    Send(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&native));
  }
  void ShowIndex() override {
    constexpr UINT kBoth = LVIS_FOCUSED | LVIS_SELECTED;
    const Own own(*this);
    SetState(index, index >= 0 ? kBoth : 0, kBoth);
    if (index >= 0) Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(index), FALSE);
  }
  void ShowSelected(int item) override {
    const Own own(*this);
    SetState(item, Selected(item) ? kChecked : kUnchecked, LVIS_STATEIMAGEMASK);
  }

  LRESULT Notify(NMHDR& header) override {
    switch (header.code) {
      case LVN_ITEMCHANGING:
        return own_ == 0 && !TakesInput();
      case LVN_ITEMCHANGED:
        if (own_ == 0) Changed(reinterpret_cast<const NMLISTVIEW&>(header));
        return 0;
      case NM_DBLCLK:
        if (reinterpret_cast<const NMITEMACTIVATE&>(header).iItem >= 0) Raise(List().DblClick);
        return 0;
      default:
        return 0;
    }
  }

  LRESULT Handle(const Message& message) override {
    if (message.number == WM_SETFOCUS) {
      {
        // A list that gets the focus may put it on an item, which no user has chosen.
        const Own own(*this);
        Native(message);
      }
      return FocusArrived();
    }
    const LRESULT result = Peer::Handle(message);
    if (message.number == WM_SIZE) FitColumn();
    if (message.number == WM_ENABLE || message.number == WM_SYSCOLORCHANGE) ShowColours();
    return result;
  }

 private:
  void SetState(int item, UINT state, UINT mask) const {
    LVITEMW native = {};
    native.state = state;
    native.stateMask = mask;
    Send(LVM_SETITEMSTATE, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&native));
  }

  int ClientWidth() const {
    RECT client = {};
    GetClientRect(window, &client);
    return client.right;
  }

  void FitColumn() const {
    if (window) Send(LVM_SETCOLUMNWIDTH, 0, ClientWidth());
  }

  // A list view looks the same when it is disabled, but for its scroll bar.
  void ShowColours() const {
    const bool usable = IsWindowEnabled(window) != FALSE;
    const auto ground = static_cast<LPARAM>(GetSysColor(usable ? COLOR_WINDOW : COLOR_BTNFACE));
    const int text = usable ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT;
    Send(LVM_SETBKCOLOR, 0, ground);
    Send(LVM_SETTEXTBKCOLOR, 0, ground);
    Send(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(GetSysColor(text)));
    InvalidateRect(window, nullptr, TRUE);
  }

  // The user has moved to an item or changed its check.
  void Changed(const NMLISTVIEW& change) {
    if (!(change.uChanged & LVIF_STATE) || !Has(change.iItem)) return;
    const UINT now = change.uNewState & LVIS_STATEIMAGEMASK;
    const UINT before = change.uOldState & LVIS_STATEIMAGEMASK;
    if (now != before) {
      Checked(change.iItem, now == kChecked);
    } else if ((change.uNewState & ~change.uOldState & LVIS_FOCUSED) && index != change.iItem) {
      index = change.iItem;
      RaiseClick();
    }
  }

  void Checked(int item, bool checked) {
    if (!Mark(item, checked)) return;
    if (index != item) {
      index = item;
      ShowIndex();
    }
    RaiseCheck(item);
  }

  int own_ = 0;
};

}  // namespace

std::unique_ptr<ListBoxPeer> MakeCheckList(Form& form, int id) {
  return std::make_unique<CheckList>(form, id, ListBox::Kind::kChecked);
}

}  // namespace controls
