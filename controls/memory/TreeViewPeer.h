#pragma once

#include "controls/TreeModel.h"
#include "controls/memory/ControlPeer.h"

namespace controls {

struct TreeViewPeer : Control::Peer {
  TreeModel model{nullptr};

 protected:
  void RestartKind() override { model.Restart(); }
};

}  // namespace controls
