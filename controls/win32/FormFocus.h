#pragma once

#include "controls/TabOrder.h"
#include "controls/win32/ControlPeer.h"

namespace controls {

// Keeps the system's focus where a form's tab order has it, and the thick border on the button that
// Enter presses.
class FormFocus {
 public:
  FormFocus(const Form::Peer& form, TabOrder& order) : form_(form), order_(order) {}

  // A form that is not shown yet gives it when it is.
  void Give(Control::Peer& control);
  // The form is shown.
  void Start();
  // The form has become the active window.
  void Restore() const;
  // Passes the focus on where its holder may no longer have it.
  void LeaveUnfit();
  // What the Tab key does.
  void Advance(bool backwards);
  void ShowDefaultButton() const;

 private:
  const Form::Peer& form_;
  TabOrder& order_;
};

}  // namespace controls
