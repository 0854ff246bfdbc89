// Lists with check boxes: a native list view, which toggles checks by itself and tells screen
// readers of them.

#include "controls/win32/ListBoxPeer.h"

namespace controls {
namespace {

constexpr UINT kUnchecked = INDEXTOSTATEIMAGEMASK(1);
constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2);

struct CheckList : ListBoxPeer {
  using ListBoxPeer::ListBoxPeer;

  // Stands around what the program itself does to the native control, whose notifications of that
  // are no user's.
  class ProgramChange {
   public:
    explicit ProgramChange(CheckList& list) : list_(list) { ++list_.programChanges_; }
    ~ProgramChange() { --list_.programChanges_; }
    ProgramChange(const ProgramChange&) = delete;
    ProgramChange& operator=(const ProgramChange&) = delete;

   private:
    CheckList& list_;
  };

  void Attached() override {
    const ProgramChange change(*this);
    SetWindowTheme(window, L"Explorer", nullptr);
    SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP, true);
    BufferingChanged();
    LVCOLUMNW column = {};
    column.mask = LVCF_WIDTH;
    column.cx = ClientWidth();
    Send(LVM_INSERTCOLUMNW, 0, AsLParam(&column));
  }

  // The control draws its check boxes once, in the resolution of that time, and drops both them and
  // the checks when it is told to have none.
  void DpiChanged() override {
    const ProgramChange change(*this);
    SetExtendedStyle(LVS_EX_CHECKBOXES, false);
    SetExtendedStyle(LVS_EX_CHECKBOXES, true);
    for (int item = 0; item < model.Count(); ++item) SelectionChanged(item);
  }
  void BufferingChanged() override { SetExtendedStyle(LVS_EX_DOUBLEBUFFER, Buffers()); }

  // The control measures its items when it first paints them, and goes on to set its scroll bars
  // several times over. Nobody has to wait for that, or see it: it paints into nothing now.
  void Showing() override {
    const MemoryContext nothing(CreateCompatibleDC(nullptr));
    Send(WM_PRINTCLIENT, AsWParam(nothing.Get()), PRF_CLIENT);
  }

  void ItemAdded(int item) override {
    const ProgramChange change(*this);
    LVITEMW native = {};
    native.mask = LVIF_TEXT | LVIF_PARAM;
    native.iItem = item;
    native.pszText = const_cast<wchar_t*>(model.Text(item).c_str());  // which is only read
    native.lParam = model.Data(item);
    Send(LVM_INSERTITEMW, 0, AsLParam(&native));
  }
  void ItemRemoved(int item) override {
    const ProgramChange change(*this);
    Send(LVM_DELETEITEM, static_cast<WPARAM>(item));
    IndexChanged();
  }
  void Cleared() override {
    const ProgramChange change(*this);
    Send(LVM_DELETEALLITEMS);
  }
  void DataChanged(int item) override {
    LVITEMW native = {};
    native.mask = LVIF_PARAM;
    native.iItem = item;
    native.lParam = model.Data(item);
    Send(LVM_SETITEMW, 0, AsLParam(&native));
  }
  void IndexChanged() override {
    constexpr UINT kBoth = LVIS_FOCUSED | LVIS_SELECTED;
    const ProgramChange change(*this);
    const int index = model.Index();
    SetState(index, index >= 0 ? kBoth : 0, kBoth);
    if (index >= 0) Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(index), FALSE);
  }
  void SelectionChanged(int item) override {
    const ProgramChange change(*this);
    SetState(item, model.Selected(item) ? kChecked : kUnchecked, LVIS_STATEIMAGEMASK);
  }

  LRESULT Notify(NMHDR& header) override {
    switch (header.code) {
      case LVN_ITEMCHANGING:
        return programChanges_ == 0 && !TakesInput();
      case LVN_ITEMCHANGED:
        if (programChanges_ == 0) Changed(NotificationIn<const NMLISTVIEW>(header));
        return 0;
      case NM_DBLCLK:
        if (NotificationIn<const NMITEMACTIVATE>(header).iItem >= 0) RaiseDblClick();
        return 0;
      default:
        return 0;
    }
  }

  LRESULT Handle(const Message& message) override {
    if (message.number == WM_SETFOCUS) {
      {
        // A list that gets the focus may put it on an item, which no user has chosen.
        const ProgramChange change(*this);
        Native(message);
      }
      return FocusArrived();
    }
    if (message.number == WM_KEYDOWN && message.wParam == VK_SPACE && IsSearching()) return 0;
    if (message.number == WM_CHAR) return Character(static_cast<wchar_t>(message.wParam));
    const LRESULT result = Peer::Handle(message);
    if (message.number == WM_SIZE) FitColumn();
    if (message.number == WM_ENABLE || message.number == WM_SYSCOLORCHANGE) ShowColours();
    return result;
  }

 private:
  static std::uint32_t MessageTime() { return static_cast<std::uint32_t>(GetMessageTime()); }
  bool IsSearching() const { return model.IsSearching(MessageTime()); }

  // The key of a blank has ticked the item before its character comes, unless one was searched for.
  LRESULT Character(wchar_t character) {
    const bool ticked = character == L' ' && !IsSearching();
    if (!ticked && character >= L' ' && TakesInput()) model.Type(character, MessageTime());
    return 0;
  }

  void SetExtendedStyle(DWORD styles, bool on) const {
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, styles, on ? styles : 0);
  }

  void SetState(int item, UINT bits, UINT mask) const {
    LVITEMW native = {};
    native.state = bits;
    native.stateMask = mask;
    Send(LVM_SETITEMSTATE, static_cast<WPARAM>(item), AsLParam(&native));
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
    if (!(change.uChanged & LVIF_STATE) || !model.Has(change.iItem)) return;
    const UINT now = change.uNewState & LVIS_STATEIMAGEMASK;
    const UINT before = change.uOldState & LVIS_STATEIMAGEMASK;
    if (now != before) {
      model.Check(change.iItem, now == kChecked);
    } else if (change.uNewState & ~change.uOldState & LVIS_FOCUSED) {
      model.Choose(change.iItem);
    }
  }

  int programChanges_ = 0;
};

}  // namespace

std::unique_ptr<ListBoxPeer> MakeCheckList(Form& form, int id) {
  return std::make_unique<CheckList>(form, id, ListBox::Kind::kChecked);
}

}  // namespace controls
