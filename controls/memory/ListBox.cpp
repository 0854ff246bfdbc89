#include "controls/ListBox.h"

#include "controls/memory/ListBoxPeer.h"

namespace controls {

ListBox::ListBox(Form& form, int id, Kind kind)
    : Control(form, id, std::make_unique<ListBoxPeer>(kind)) {
  ModelOf(*this).SetOwner(*this);
}

ListModel& ModelOf(const ListBox& list) {
  return PeerOf<ListBoxPeer>(list).model;
}

}  // namespace controls
