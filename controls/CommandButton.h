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

  std::function<void()> Click;
};

}  // namespace controls
