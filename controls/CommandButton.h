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

  std::function<void()> Click;
};

}  // namespace controls
