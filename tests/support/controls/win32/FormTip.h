#pragma once

#include <string>

#include "controls/win32/Handles.h"

namespace test_support {

// The tip that stands on a form's own window, for what lies on it and gets no mouse messages.
class FormTip {
 public:
  explicit FormTip(HWND form);

  // Null where the form has none so far.
  HWND Tooltip() const { return tooltip_; }
  // What the tip says, or is about to say, at a place of the form's client area.
  std::wstring TextAt(POINT place) const;

 private:
  HWND form_;
  HWND tooltip_ = nullptr;
};

}  // namespace test_support
