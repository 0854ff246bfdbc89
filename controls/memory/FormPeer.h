#pragma once

#include <string>
#include <vector>

#include "controls/Control.h"
#include "controls/Form.h"

namespace controls {

// What a form keeps in memory: its controls in two orders, its focus and where its life stands.
struct Form::Peer {
  explicit Peer(Form& owner) : form(owner) {}

  // --- Controls, in Form.cpp and FormFocus.cpp ---
  void Enter(Control& control);
  void Leave(Control& control);
  const std::vector<Control*>& TabOrder() const { return tabOrder_; }
  int TabIndexOf(const Control& control) const;
  void MoveInTabOrder(Control& control, int index);

  // --- Focus ---
  Control* Focused() const { return visible ? focus_ : nullptr; }
  static bool CanFocus(const Control& control);
  void SetFocus(Control& control);
  // Gives the focus, on showing, to the control that asked for it or to the first in the order.
  void StartFocus();
  // Takes the focus from a control that is no longer usable.
  void KeepFocusUsable();
  // The control that the Tab key reaches from the one given, which may be null; null for none.
  Control* NextInTabOrder(const Control* from, bool backwards) const;

  // --- Life ---
  void Start();
  void ShowNow();
  // The window is gone, without a question.
  void Destroy();
  // Whether the user's input reaches the form.
  bool TakesInput() const;

  Form& form;
  bool loaded = false;
  bool visible = false;
  bool unloading = false;
  int modalAbove = 0;          // the modal forms that have this one as their owner
  Form* modalOwner = nullptr;  // while shown modally
  CommandButton* defaultButton = nullptr;
  CommandButton* cancelButton = nullptr;
  std::wstring caption;
  Font font;
  int icon = 0;
  bool resizable = false;

 private:
  void MoveFocus(Control* to);

  std::vector<Control*> controls_;
  std::vector<Control*> tabOrder_;
  Control* focus_ = nullptr;
};

}  // namespace controls
