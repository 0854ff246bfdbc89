#pragma once

#include "controls/win32/ListBoxPeer.h"
#include "tests/support/controls/win32/Input.h"

namespace test_support {

// The mouse over a list of any kind.
class ListMouse {
 public:
  ListMouse(controls::ListBoxPeer& list, Input& input) : list_(list), input_(input) {}

  void ClickText(int item) { input_.Click(list_.window, TextPlace(item)); }
  // The second press of a double click.
  void ClickTextAgain(int item) { input_.ClickAgain(list_.window, TextPlace(item)); }
  // Clicks the check box, or the text with the Control key held.
  void Toggle(int item);

 private:
  bool Checks() const { return list_.model.Kind() == controls::ListBox::Kind::kChecked; }
  RECT Line(int item) const;
  POINT TextPlace(int item) const;
  POINT CheckPlace(int item) const;

  controls::ListBoxPeer& list_;
  Input& input_;
};

}  // namespace test_support
