#pragma once

#include <string>
#include <vector>

#include "controls/TabStrip.h"
#include "controls/memory/ControlPeer.h"

namespace controls {

struct TabStripPeer : Control::Peer {
  bool TurnTabs(bool backwards) override {
    static_cast<TabStrip&>(*control).SelectNext(backwards);
    return true;
  }

  bool Has(int tab) const { return tab >= 0 && tab < static_cast<int>(captions.size()); }

  std::vector<std::wstring> captions;
  int selected = -1;

 protected:
  void RestartKind() override {
    captions.clear();
    selected = -1;
  }
};

}  // namespace controls
