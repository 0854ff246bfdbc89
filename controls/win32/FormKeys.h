#pragma once

#include "controls/win32/ControlPeer.h"

namespace controls {

// The keys of a form on their way to the control that has the focus: the form's own procedures see
// them first, then Enter, Escape and Tab do their work.
class FormKeys {
 public:
  explicit FormKeys(Form::Peer& form) : form_(form) {}

  // True when the message is dealt with.
  bool Preview(const MSG& message);
  // WM_HELP, which the system makes of F1 but which also comes alone. The form is told of F1 once
  // either way.
  void Help();
  // Keys that are down now come up elsewhere.
  void Forget() { f1Down_ = false; }

 private:
  bool Down(int keyCode);
  bool Navigate(int keyCode);
  void ShowFocusCues() const;
  void Press(ControlModel* button) const;

  Form::Peer& form_;
  bool f1Down_ = false;
};

}  // namespace controls
