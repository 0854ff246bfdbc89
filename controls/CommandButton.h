#pragma once

#include <functional>
#include <string>

#include "controls/Control.h"

namespace controls {

class CommandButton : public Control {
 public:
  CommandButton(Form& form, int id);

  std::wstring Caption() const;
  // An ampersand marks the mnemonic.
  void SetCaption(const std::wstring& caption);

  // What screen readers say in place of a caption that cannot be spoken; the caption stays. Empty
  // where they say the caption.
  const std::wstring& AccessibleName() const;
  void SetAccessibleName(const std::wstring& name);

  // What is said of the button as long as it is disabled: in a tip under the mouse and, where
  // screen readers ask for a description, to them. Empty for nothing.
  const std::wstring& WhyDisabled() const;
  void SetWhyDisabled(const std::wstring& why);

  std::function<void()> Click;
};

}  // namespace controls
