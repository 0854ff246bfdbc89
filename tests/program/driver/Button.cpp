#include "tests/program/driver/Button.h"

#include "tests/program/driver/Failure.h"

namespace driver {

void Press(const Window& button) {
  if (!button.IsVisible() || !button.IsEnabled()) {
    throw Failure("button " + std::to_string(button.Id()) + " cannot be pressed");
  }
  button.Post(BM_CLICK);
}

bool IsChecked(const Window& button) {
  return button.Send(BM_GETCHECK) == BST_CHECKED;
}

}  // namespace driver
