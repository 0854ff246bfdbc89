#pragma once

#include <memory>

#include "controls/ListModel.h"
#include "controls/win32/ControlPeer.h"

namespace controls {

// A native list beside its model. The kinds below differ in the native control that shows it.
struct ListBoxPeer : Control::Peer, ListModel::View {
  ListBoxPeer(Form& owner, int controlId, ListBox::Kind kind)
      : Peer(owner, controlId), model(kind, this) {}

  void Detached() override { model.Restart(); }
  void FocusGained() override { model.TakeFocus(); }
  void UpdateBegins() override { Send(WM_SETREDRAW, FALSE); }
  void UpdateEnds() override {
    if (!window) return;
    Send(WM_SETREDRAW, TRUE);
    InvalidateRect(window, nullptr, TRUE);
  }
  void RaiseDblClick() const {
    const auto& list = static_cast<const ListBox&>(*control);
    Raise(form, list.DblClick);
  }

  ListModel model;
};

// Over a native list box, whose template has LBS_NOTIFY, not LBS_SORT, and LBS_EXTENDEDSEL where
// several items may be selected.
std::unique_ptr<ListBoxPeer> MakePlainList(Form& form, int id, ListBox::Kind kind);
// Over a native list view, whose template has LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL.
std::unique_ptr<ListBoxPeer> MakeCheckList(Form& form, int id);

}  // namespace controls
