#pragma once

#include <string>

#include "controls/Control.h"

namespace controls {

// A text that names the control after it in the tab order. An ampersand marks the mnemonic;
// SetPlainCaption shows ampersands as they are, for texts that come from data.
class Label : public Control {
 public:
  Label(Form& form, int id);

  std::wstring Caption() const;
  void SetCaption(const std::wstring& caption);
  void SetPlainCaption(const std::wstring& caption);

  // Has screen readers say the text, when they have said what they are at.
  void Announce();
};

}  // namespace controls
