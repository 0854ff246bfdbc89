#pragma once

#include <optional>

#include "controls/Control.h"

namespace app {

// The font that a user's locale asks for; most locales ask for none, and the windows keep the fonts
// of their design.
std::optional<controls::Font> LocaleFont(int lcid);

// Gives a window and its controls the font of the user's default locale.
void SetLocaleFont(controls::Form& form);

}  // namespace app
