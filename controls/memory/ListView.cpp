#include "controls/ListView.h"

#include "controls/memory/ListViewPeer.h"

namespace controls {

ListView::ListView(Form& form, int id) : Control(form, id, std::make_unique<ListViewPeer>()) {
  ModelOf(*this).SetOwner(*this);
}

const std::wstring& ListView::AccessibleName() const {
  return BackEnd().state.accessibleName;
}

void ListView::SetAccessibleName(const std::wstring& name) {
  BackEnd().state.accessibleName = name;
}

ListViewModel& ModelOf(const ListView& list) {
  return PeerOf<ListViewPeer>(list).model;
}

}  // namespace controls
