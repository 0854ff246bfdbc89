#include "controls/InputHold.h"

#include "controls/memory/DesktopPeer.h"

namespace controls {

void HoldInput(Desktop& desktop) noexcept {
  ++desktop.BackEnd().inputHolds;
}

void ReleaseInput(Desktop& desktop) noexcept {
  --desktop.BackEnd().inputHolds;
}

}  // namespace controls
