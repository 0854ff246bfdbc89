#include "controls/ListView.h"

#include "controls/win32/ListViewPeer.h"

namespace controls {

ListView::ListView(Form& form, int id)
    : Control(form, id, std::make_unique<ListViewPeer>(form, id)) {
  ModelOf(*this).SetOwner(*this);
}

const std::wstring& ListView::AccessibleName() const {
  return BackEnd().state.accessibleName;
}

void ListView::SetAccessibleName(const std::wstring& name) {
  BackEnd().state.accessibleName = name;
  static_cast<ListViewPeer&>(BackEnd()).ShowAccessibleName();
}

ListViewModel& ModelOf(const ListView& list) {
  return static_cast<ListViewPeer&>(list.BackEnd()).model;
}

}  // namespace controls
