#pragma once

#include "controls/TextBox.h"

namespace dialogs {

// Selects the whole text of a box.
void SelectAll(controls::TextBox& box);

// Makes a box select its whole text whenever it gets the focus.
void SelectAllOnFocus(controls::TextBox& box);

}  // namespace dialogs
