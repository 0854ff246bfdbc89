#pragma once

#include <vector>

#include "controls/win32/ControlPeer.h"

namespace controls {

// Who has a form's focus, in which order the Tab key passes it on, and which buttons Enter and
// Escape press. The holder outlives the form's losing the focus to another window, so that events
// tell of moves within the form only.
class FormFocus {
 public:
  explicit FormFocus(const Form::Peer& form) : form_(form) {}

  void Add(Control::Peer& control);
  void Remove(const Control::Peer& control);
  // The form is loaded anew: nobody has the focus, the order is that of construction.
  void Reset();

  Control::Peer* Holder() const { return holder_; }
  // A form that is not shown yet gives it when it is.
  void Give(Control::Peer& control);
  // The form is shown: the control that asked for it has the focus, else the first that may.
  void Start();
  // The system has moved the focus to a control.
  void MovedTo(Control::Peer* control);
  // The form has become the active window.
  void Restore() const;
  // Passes the focus on where its holder may no longer have it.
  void LeaveUnfit();
  void Advance(bool backwards);

  int IndexOf(const Control::Peer& control) const;
  void SetIndex(Control::Peer& control, int index);

  void SetDefaultButton(Control::Peer& button);
  void SetCancelButton(Control::Peer& button) { cancel_ = &button; }
  // What Enter or Escape presses; null for nothing.
  Control::Peer* EnterButton() const;
  Control::Peer* EscapeButton() const { return cancel_; }

 private:
  Control::Peer* NextTo(const Control::Peer* control, bool backwards) const;
  void ShowDefaultButton() const;

  const Form::Peer& form_;
  std::vector<Control::Peer*> constructed_;
  std::vector<Control::Peer*> order_;
  Control::Peer* holder_ = nullptr;
  unsigned moves_ = 0;  // how often the holder has changed
  Control::Peer* wanted_ = nullptr;
  Control::Peer* default_ = nullptr;
  Control::Peer* cancel_ = nullptr;
};

}  // namespace controls
