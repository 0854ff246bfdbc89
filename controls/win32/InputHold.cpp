#include "controls/InputHold.h"

#include "controls/win32/DesktopPeer.h"

namespace controls {

void HoldInput(Desktop& desktop) noexcept {
  ++desktop.BackEnd().inputHolds;
}

void ReleaseInput(Desktop& desktop) noexcept {
  --desktop.BackEnd().inputHolds;
}

}  // namespace controls
