#pragma once

#include <string>

#include "controls/Control.h"

namespace controls {

// A captioned box around other controls; hiding or disabling it hides or disables those whose
// container it is.
class Frame : public Control {
 public:
  Frame(Form& form, int id);

  std::wstring Caption() const;
  void SetCaption(const std::wstring& caption);
};

}  // namespace controls
