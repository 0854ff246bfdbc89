#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "tests/program/driver/Wait.h"
#include "tests/program/driver/Window.h"

namespace driver {

// A message box of the program.
class PromptBox {
 public:
  explicit PromptBox(const Window& window) : window_(window) {}

  const Window& Box() const { return window_; }
  std::wstring Title() const { return window_.Text(); }
  std::wstring Text() const;
  bool HasIcon() const;
  // The numbers of its buttons in their order: IDOK, IDYES, ...
  std::vector<int> Buttons() const;
  // The number of the button that Enter presses.
  int DefaultButton() const;
  // Presses a button and waits until the box is gone.
  void Answer(int button) const;

 private:
  Window window_;
};

// The message box that a process shows at this moment.
std::optional<PromptBox> FindPrompt(DWORD processId);

// Waits for one. Throws a Failure when none comes.
PromptBox AwaitPrompt(DWORD processId, std::chrono::milliseconds patience = kPatience);

}  // namespace driver
