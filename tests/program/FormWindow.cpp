#include "tests/program/FormWindow.h"

#include <string>

#include "tests/program/driver/Button.h"
#include "tests/program/driver/Failure.h"
#include "tests/program/driver/Keyboard.h"
#include "tests/program/driver/Mouse.h"
#include "tests/program/driver/Wait.h"

namespace program {
namespace {

constexpr int kMostSteps = 30;

}  // namespace

int FormWindow::Focus() const {
  return driver::FocusIn(form_).Id();
}

void FormWindow::AwaitFocus(int id) const {
  driver::Await("the focus to be in control " + std::to_string(id), [&] { return Focus() == id; });
}

void FormWindow::Key(WORD key, std::initializer_list<WORD> modifiers) const {
  driver::PressKey(form_, key, modifiers);
}

void FormWindow::TabTo(int id) const {
  driver::BringToFront(form_);
  for (int step = 0; Focus() != id; ++step) {
    if (step == kMostSteps) throw driver::Failure("no way by Tab to " + std::to_string(id));
    const driver::Window before = driver::FocusIn(form_);
    Key(VK_TAB);
    driver::Await("the focus to move", [&] { return driver::FocusIn(form_) != before; });
  }
}

void FormWindow::Click(int button) const {
  driver::ClickOn(Control(button));
}

void FormWindow::Press(int button) const {
  driver::Press(Control(button));
}

}  // namespace program
