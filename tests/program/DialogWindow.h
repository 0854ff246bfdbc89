#pragma once

#include <string>

#include "tests/program/FormWindow.h"
#include "tests/program/driver/ListBox.h"
#include "tests/program/driver/ListView.h"
#include "tests/program/driver/Process.h"
#include "tests/program/driver/TextBox.h"

namespace program {

// One of the program's dialogs as its user finds it.
class DialogWindow : public FormWindow {
 public:
  // Waits until the dialog of this title is there and takes input. Throws a Failure when a message
  // box comes instead.
  DialogWindow(const driver::Process& process, const std::wstring& title);

  driver::TextBox Box(int id) const { return driver::TextBox(Control(id)); }
  driver::ListBox List(int id) const { return driver::ListBox(Control(id)); }
  driver::ListView Checks(int id) const { return driver::ListView(Control(id)); }

  // On the real keyboard. Waits until the text is what the control with the focus holds.
  void Type(const std::wstring& text) const;
  // In the check list with the focus: moves to the row of this text by the arrow keys and turns its
  // check box over by the space bar.
  void Toggle(const std::wstring& text) const;

  bool IsOpen() const { return Form().Exists() && Form().IsVisible(); }
  void AwaitClosed() const;
};

}  // namespace program
