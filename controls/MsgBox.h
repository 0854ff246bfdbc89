#pragma once

#include <string>

namespace controls {

// Styles of a message box: one set of buttons, one icon and one default button, added up. The
// values are those of the Windows function MessageBox.
enum MsgBoxStyle : int {
  kOkOnly = 0,
  kYesNo = 4,
  kCritical = 16,
  kExclamation = 48,
  kInformation = 64,
  kDefaultButton2 = 256,
};

// What a message box answers. Closing it counts as its refusing button.
enum MsgBoxResult : int {
  kResultOk = 1,
  kResultCancel = 2,
  kResultYes = 6,
  kResultNo = 7,
};

}  // namespace controls
