#pragma once

#include "controls/ListViewModel.h"
#include "controls/memory/ControlPeer.h"

namespace controls {

struct ListViewPeer : Control::Peer {
  void FocusGained() override { model.TakeFocus(); }
  bool TakeEnter() override { return model.Activate(); }

  ListViewModel model{nullptr};

 protected:
  void RestartKind() override { model.Restart(); }
};

}  // namespace controls
