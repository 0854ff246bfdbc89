#pragma once

#include "controls/ListView.h"
#include "controls/win32/ControlPeer.h"
#include "tests/support/controls/win32/Input.h"

namespace test_support {

// The mouse over the rows and headings of a list view.
class RowMouse {
 public:
  RowMouse(controls::ListView& list, Input& input) : list_(list.BackEnd()), input_(input) {}

  void Click(int place) { input_.Click(list_.window, Place(place)); }
  void ClickWithControl(int place);
  // The second press of a double click.
  void ClickAgain(int place) { input_.ClickAgain(list_.window, Place(place)); }
  void ClickHeading(int column);

 private:
  // On the row's first text, brought into view.
  POINT Place(int place) const;

  controls::Control::Peer& list_;
  Input& input_;
};

}  // namespace test_support
