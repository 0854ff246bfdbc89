#pragma once

#include <string>

#include "controls/Form.h"
#include "controls/TabOrder.h"
#include "controls/memory/ControlPeer.h"

namespace controls {

// A form in memory.
struct Form::Peer {
  explicit Peer(Form& owner) : form(owner), order(owner) {}

  // All that ends when the form is unloaded.
  struct Life {
    bool loaded = false;
    bool visible = false;
    bool unloading = false;
    Form* modalOwner = nullptr;  // while shown modally
    std::wstring caption;
    Font font;
    int icon = 0;
    bool resizable = false;
  };

  void Start();
  void Show();
  // The window is gone, without a question.
  void Destroy();
  // Whether the user's input reaches the form.
  bool TakesInput() const;

  void GiveFocus(Control::Peer& control);
  // Passes the focus on where its holder may no longer have it.
  void LeaveUnfit();
  // The font that a control is shown in.
  const Font& FontOf(const Control::Peer& control) const {
    return control.state.font ? *control.state.font : life.font;
  }

  Form& form;
  Life life;
  TabOrder order;
  int modalAbove = 0;  // the modal forms that have this one as their owner

 private:
  void Restart();
};

}  // namespace controls
