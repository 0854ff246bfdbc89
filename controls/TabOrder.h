#pragma once

#include <functional>
#include <vector>

#include "controls/ControlState.h"
#include "controls/Form.h"

namespace controls {

// Which control of a form has the focus, which one gets it next, and which buttons Enter and Escape
// press. The holder stays what it is while another window is in front, so that events tell of moves
// within the form only. A back end brings the system's own focus in step.
class TabOrder {
 public:
  // moved is called when the holder has changed, before any event, to show that.
  explicit TabOrder(const Form& form, std::function<void()> moved = {});

  void Add(ControlModel& control);
  void Remove(const ControlModel& control);
  // The form starts another life: the order is that of construction, nobody has the focus.
  void Restart();

  const std::vector<ControlModel*>& Order() const { return order_; }
  int IndexOf(const ControlModel& control) const;
  // Cut to the places there are.
  void SetIndex(ControlModel& control, int index);

  // Null while the form is not shown, and where no control may have the focus.
  ControlModel* Holder() const { return holder_; }
  // How often the holder has changed, for callers that set off events.
  unsigned Moves() const { return moves_; }
  // The form is not shown yet: this control shall have the focus then.
  void Want(ControlModel& control) { wanted_ = &control; }
  // Who gets the focus when the form is shown: the control that asked for it, else the first in the
  // order that may have it; null for none.
  ControlModel* TakeFirst();
  // Whether the holder has been hidden or disabled, itself or by its container. The focus then goes
  // to the Next after it.
  bool HolderIsUnfit() const { return holder_ && !holder_->MayHaveFocus(); }
  // The next control in the order, round its end, that may have the focus: from null the first, or
  // the last backwards. Null where there is no other.
  ControlModel* Next(const ControlModel* from, bool backwards) const;
  // Makes the control, null for none, the holder: LostFocus, then GotFocus. Its procedures may move
  // the focus on, or unload the form.
  void MoveTo(ControlModel* control);

  // Turns the tabs of the first row of them that a user can reach. False where there is none.
  bool TurnTabs(bool backwards) const;

  // Whether the holder does something with Enter.
  bool TakeEnter() const { return holder_ && holder_->TakeEnter(); }

  void SetDefaultButton(ControlModel& button) { default_ = &button; }
  void SetCancelButton(ControlModel& button) { cancel_ = &button; }
  // What Enter or Escape presses; null for nothing.
  ControlModel* EnterButton() const { return holder_ && holder_->IsButton() ? holder_ : default_; }
  ControlModel* EscapeButton() const { return cancel_; }

 private:
  const Form& form_;
  std::function<void()> moved_;
  std::vector<ControlModel*> constructed_;
  std::vector<ControlModel*> order_;
  unsigned moves_ = 0;
  ControlModel* holder_ = nullptr;
  ControlModel* wanted_ = nullptr;
  ControlModel* default_ = nullptr;
  ControlModel* cancel_ = nullptr;
};

}  // namespace controls
