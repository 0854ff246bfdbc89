#pragma once

#include "controls/TextBox.h"

namespace dialogs {

// Selects the whole text of a box, also of one that has the focus already. A box that gets the
// focus does so by itself.
void SelectAll(controls::TextBox& box);

}  // namespace dialogs
