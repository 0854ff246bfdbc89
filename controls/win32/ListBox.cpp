#include "controls/ListBox.h"

#include "controls/win32/ListBoxPeer.h"

namespace controls {
namespace {

std::unique_ptr<ListBoxPeer> MakePeer(Form& form, int id, ListBox::Kind kind) {
  return kind == ListBox::Kind::kChecked ? MakeCheckList(form, id) : MakePlainList(form, id, kind);
}

ListBoxPeer& PeerOfList(const ListBox& list) {
  return static_cast<ListBoxPeer&>(list.BackEnd());
}

}  // namespace

ListBox::Update::Update(ListBox& list) : list_(list) {
  PeerOfList(list_).Hold();
}

ListBox::Update::~Update() {
  PeerOfList(list_).LetGo();
}

ListBox::ListBox(Form& form, int id, Kind kind) : Control(form, id, MakePeer(form, id, kind)) {}

int ListBox::AddItem(const std::wstring& text, std::int32_t itemData) {
  ListBoxPeer& peer = PeerOfList(*this);
  if (!peer.window) return -1;
  peer.items.push_back({text, itemData});
  const int item = ListCount() - 1;
  peer.InsertNative(item);
  return item;
}

void ListBox::RemoveItem(int item) {
  ListBoxPeer& peer = PeerOfList(*this);
  if (!peer.Has(item)) return;
  peer.Mark(item, false);
  peer.items.erase(peer.items.begin() + item);
  if (peer.index == item) {
    peer.index = -1;
  } else if (peer.index > item) {
    --peer.index;
  }
  peer.RemoveNative(item);
}

void ListBox::Clear() {
  ListBoxPeer& peer = PeerOfList(*this);
  peer.items.clear();
  peer.index = -1;
  peer.marked = 0;
  peer.ClearNative();
}

int ListBox::ListCount() const {
  return static_cast<int>(PeerOfList(*this).items.size());
}

std::wstring ListBox::List(int item) const {
  ListBoxPeer& peer = PeerOfList(*this);
  return peer.Has(item) ? peer.At(item).text : std::wstring();
}

std::int32_t ListBox::ItemData(int item) const {
  ListBoxPeer& peer = PeerOfList(*this);
  return peer.Has(item) ? peer.At(item).data : 0;
}

void ListBox::SetItemData(int item, std::int32_t data) {
  ListBoxPeer& peer = PeerOfList(*this);
  if (!peer.Has(item)) return;
  peer.At(item).data = data;
  peer.ShowData(item);
}

int ListBox::ListIndex() const {
  return PeerOfList(*this).index;
}

void ListBox::SetListIndex(int item) {
  ListBoxPeer& peer = PeerOfList(*this);
  peer.index = peer.Has(item) ? item : -1;
  peer.ShowIndex();
}

bool ListBox::Selected(int item) const {
  return PeerOfList(*this).Selected(item);
}

void ListBox::SetSelected(int item, bool selected) {
  ListBoxPeer& peer = PeerOfList(*this);
  if (!peer.Has(item)) return;
  if (peer.kind == Kind::kPlain) {
    if (selected != peer.Selected(item)) SetListIndex(selected ? item : -1);
    return;
  }
  if (!peer.Mark(item, selected)) return;
  peer.ShowSelected(item);
  if (peer.kind == Kind::kChecked) peer.RaiseCheck(item);
}

int ListBox::SelCount() const {
  const ListBoxPeer& peer = PeerOfList(*this);
  if (peer.kind == Kind::kPlain) return peer.index >= 0 ? 1 : 0;
  return peer.marked;
}

}  // namespace controls
