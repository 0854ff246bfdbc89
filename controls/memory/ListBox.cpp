#include "controls/ListBox.h"

#include "controls/memory/Events.h"
#include "controls/memory/ListBoxPeer.h"

namespace controls {

ListBox::Update::Update(ListBox& list) : list_(list) {}
ListBox::Update::~Update() = default;

ListBox::ListBox(Form& form, int id, Kind kind)
    : Control(form, id, std::make_unique<ListBoxPeer>(kind)) {}

int ListBox::AddItem(const std::wstring& text, std::int32_t itemData) {
  auto& peer = PeerOf<ListBoxPeer>(*this);
  peer.items.push_back({text, itemData});
  return static_cast<int>(peer.items.size()) - 1;
}

void ListBox::RemoveItem(int item) {
  auto& peer = PeerOf<ListBoxPeer>(*this);
  if (!peer.Has(item)) return;
  peer.Mark(item, false);
  peer.items.erase(peer.items.begin() + item);
  if (peer.index == item) {
    peer.index = -1;
  } else if (peer.index > item) {
    --peer.index;
  }
}

void ListBox::Clear() {
  auto& peer = PeerOf<ListBoxPeer>(*this);
  peer.items.clear();
  peer.index = -1;
  peer.marked = 0;
}

int ListBox::ListCount() const {
  return static_cast<int>(PeerOf<ListBoxPeer>(*this).items.size());
}

std::wstring ListBox::List(int item) const {
  const auto& peer = PeerOf<ListBoxPeer>(*this);
  return peer.Has(item) ? peer.items[item].text : std::wstring();
}

std::int32_t ListBox::ItemData(int item) const {
  const auto& peer = PeerOf<ListBoxPeer>(*this);
  return peer.Has(item) ? peer.items[item].data : 0;
}

void ListBox::SetItemData(int item, std::int32_t data) {
  auto& peer = PeerOf<ListBoxPeer>(*this);
  if (peer.Has(item)) peer.items[item].data = data;
}

int ListBox::ListIndex() const {
  return PeerOf<ListBoxPeer>(*this).index;
}

void ListBox::SetListIndex(int item) {
  auto& peer = PeerOf<ListBoxPeer>(*this);
  peer.index = peer.Has(item) ? item : -1;
}

bool ListBox::Selected(int item) const {
  return PeerOf<ListBoxPeer>(*this).Selected(item);
}

void ListBox::SetSelected(int item, bool selected) {
  auto& peer = PeerOf<ListBoxPeer>(*this);
  if (!peer.Has(item)) return;
  if (peer.kind == Kind::kPlain) {
    if (selected != peer.Selected(item)) peer.index = selected ? item : -1;
    return;
  }
  if (!peer.Mark(item, selected) || peer.kind != Kind::kChecked) return;
  Raise(Owner(), ItemCheck, item);
  Raise(Owner(), Click);
}

int ListBox::SelCount() const {
  const auto& peer = PeerOf<ListBoxPeer>(*this);
  if (peer.kind == Kind::kPlain) return peer.index >= 0 ? 1 : 0;
  return peer.marked;
}

}  // namespace controls
