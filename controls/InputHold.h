#pragma once

namespace controls {

class Desktop;

// Between the two no form takes the user's input: keys and mouse do nothing, and no window closes.
// They stand around calls into foreign code that may handle messages, so that no command begins
// inside another. May be nested; each hold has its release.
void HoldInput(Desktop& desktop) noexcept;
void ReleaseInput(Desktop& desktop) noexcept;

}  // namespace controls
