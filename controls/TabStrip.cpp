#include "controls/TabStrip.h"

namespace controls {

void TabStrip::SelectNext(bool backwards) {
  const int count = TabCount();
  if (count > 0) SetSelectedTab((SelectedTab() + (backwards ? count - 1 : 1)) % count);
}

}  // namespace controls
