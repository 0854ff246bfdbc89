#include "controls/ListBox.h"

#include "controls/win32/ListBoxPeer.h"

namespace controls {
namespace {

std::unique_ptr<ListBoxPeer> MakePeer(Form& form, int id, ListBox::Kind kind) {
  return kind == ListBox::Kind::kChecked ? MakeCheckList(form, id) : MakePlainList(form, id, kind);
}

}  // namespace

ListBox::ListBox(Form& form, int id, Kind kind) : Control(form, id, MakePeer(form, id, kind)) {
  ModelOf(*this).SetOwner(*this);
}

ListModel& ModelOf(const ListBox& list) {
  return static_cast<ListBoxPeer&>(list.BackEnd()).model;
}

}  // namespace controls
