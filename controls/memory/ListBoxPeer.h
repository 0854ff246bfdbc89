#pragma once

#include "controls/ListModel.h"
#include "controls/memory/ControlPeer.h"

namespace controls {

struct ListBoxPeer : Control::Peer {
  explicit ListBoxPeer(ListBox::Kind kind) : model(kind, nullptr) {}

  void FocusGained() override { model.TakeFocus(); }
  // What is typed in memory comes at once.
  void Type(wchar_t character) { model.Type(character, 0); }
  void PressSpace() override {
    if (model.Kind() != ListBox::Kind::kPlain) Type(L' ');
  }

  ListModel model;

 protected:
  void RestartKind() override { model.Restart(); }
};

}  // namespace controls
