#pragma once

#include <windows.h>

#include <initializer_list>

#include "tests/program/driver/Window.h"

namespace program {

// A window of the program with controls in it, and what a user can do in any of them.
class FormWindow {
 public:
  const driver::Window& Form() const { return form_; }
  driver::Window Control(int id) const { return form_.Child(id); }
  bool IsEnabled(int id) const { return Control(id).IsEnabled(); }

  // The number of the control with the focus.
  int Focus() const;
  void AwaitFocus(int id) const;

  // On the real keyboard; it goes to the control with the focus.
  void Key(WORD key, std::initializer_list<WORD> modifiers = {}) const;
  // Moves to a control by the Tab key.
  void TabTo(int id) const;

  // On a button with the real mouse. What comes of it may still be on its way.
  void Click(int button) const;
  // Presses a button by a message, which needs no screen, and returns at once.
  void Press(int button) const;

 protected:
  FormWindow() = default;
  ~FormWindow() = default;

  void SetForm(const driver::Window& form) { form_ = form; }

 private:
  driver::Window form_;
};

}  // namespace program
