#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>

#include "tests/program/driver/ListBox.h"
#include "tests/program/driver/ListView.h"
#include "tests/program/driver/Process.h"
#include "tests/program/driver/TextBox.h"
#include "tests/program/driver/Window.h"

namespace program {

// One of the program's dialogs as its user finds it.
class DialogWindow {
 public:
  // Waits until the dialog of this title is there and takes input. Throws a Failure when a message
  // box comes instead.
  DialogWindow(const driver::Process& process, const std::wstring& title);

  const driver::Window& Form() const { return form_; }
  driver::Window Control(int id) const { return form_.Child(id); }
  driver::TextBox Box(int id) const { return driver::TextBox(Control(id)); }
  driver::ListBox List(int id) const { return driver::ListBox(Control(id)); }
  driver::ListView Checks(int id) const { return driver::ListView(Control(id)); }
  bool IsEnabled(int id) const { return Control(id).IsEnabled(); }

  // The number of the control with the focus.
  int Focus() const { return driver::FocusIn(form_).Id(); }
  void AwaitFocus(int id) const;

  // On the real keyboard. Typing waits until the text is what the control with the focus holds.
  void Key(WORD key, std::initializer_list<WORD> modifiers = {}) const;
  void Type(const std::wstring& text) const;
  // Moves to a control by the Tab key.
  void TabTo(int id) const;
  // In the check list with the focus: moves to the row of this text by the arrow keys and turns its
  // check box over by the space bar.
  void Toggle(const std::wstring& text) const;
  // With the real mouse.
  void ClickOn(int button) const;

  bool IsOpen() const { return form_.Exists() && form_.IsVisible(); }
  void AwaitClosed() const;

 private:
  driver::Window form_;
};

}  // namespace program
