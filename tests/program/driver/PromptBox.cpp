#include "tests/program/driver/PromptBox.h"

#include "tests/program/driver/Button.h"
#include "tests/program/driver/Failure.h"

namespace driver {
namespace {

constexpr const wchar_t* kDialogClass = L"#32770";

// The number that the system gives to the text of a message box.
constexpr int kPromptText = 0xFFFF;

bool IsPrompt(const Window& window) {
  return window.IsVisible() && window.HasChild(kPromptText) && window.Class() == kDialogClass;
}

bool IsButton(const Window& control) {
  return control.Class() == L"Button" && (control.Style() & WS_VISIBLE) != 0;
}

}  // namespace

std::wstring PromptBox::Text() const {
  return window_.Child(kPromptText).Text();
}

bool PromptBox::HasIcon() const {
  for (const Window& control : window_.Children()) {
    if (control.Class() != L"Static" || (control.Style() & SS_TYPEMASK) != SS_ICON) continue;
    return (control.Style() & WS_VISIBLE) != 0 && control.Send(STM_GETICON) != 0;
  }
  return false;
}

std::vector<int> PromptBox::Buttons() const {
  std::vector<int> buttons;
  for (const Window& control : window_.Children()) {
    if (IsButton(control)) buttons.push_back(control.Id());
  }
  return buttons;
}

// Not every system's boxes answer by message which one it is, but all of them draw it.
int PromptBox::DefaultButton() const {
  for (const Window& control : window_.Children()) {
    if (IsButton(control) && (control.Style() & BS_TYPEMASK) == BS_DEFPUSHBUTTON) {
      return control.Id();
    }
  }
  return 0;
}

void PromptBox::Answer(int button) const {
  Press(window_.Child(button));
  Await("a message box to close", [this] { return !window_.Exists(); });
}

std::optional<PromptBox> FindPrompt(DWORD processId) {
  const std::vector<Window> found = TopWindows(processId, IsPrompt);
  if (found.empty()) return std::nullopt;
  return PromptBox(found.front());
}

PromptBox AwaitPrompt(DWORD processId, std::chrono::milliseconds patience) {
  std::optional<PromptBox> box;
  Await(
      "a message box", [&] { return (box = FindPrompt(processId)).has_value(); }, patience);
  return *box;
}

}  // namespace driver
