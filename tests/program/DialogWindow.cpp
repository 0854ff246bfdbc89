#include "tests/program/DialogWindow.h"

#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/driver/Failure.h"
#include "tests/program/driver/Keyboard.h"
#include "tests/program/driver/PromptBox.h"
#include "tests/program/driver/Wait.h"

namespace program {
namespace {

driver::Window Find(DWORD processId, const std::wstring& title) {
  const auto found = driver::TopWindows(processId, [&](const driver::Window& window) {
    return window.IsVisible() && window.IsEnabled() && window.HasChild(IDC_OK) &&
           window.HasChild(IDC_HELP_BUTTON) && window.Text() == title;
  });
  return found.empty() ? driver::Window() : found.front();
}

}  // namespace

DialogWindow::DialogWindow(const driver::Process& process, const std::wstring& title) {
  driver::Await("the dialog " + data::ToUtf8(title), [&] {
    SetForm(Find(process.Id(), title));
    return Form() || driver::FindPrompt(process.Id()) || !process.IsRunning();
  });
  if (!Form()) throw driver::Failure("no dialog " + data::ToUtf8(title));
  driver::BringToFront(Form());
}

// A password box may keep its text to itself, but not how long it is.
void DialogWindow::Type(const std::wstring& text) const {
  const driver::TextBox box(driver::FocusIn(Form()));
  driver::TypeText(Form(), text.c_str());
  driver::Await("a typed text", [&] {
    if (box.IsMasked()) {
      return box.Control().Send(WM_GETTEXTLENGTH) == static_cast<LRESULT>(text.size());
    }
    return box.Text() == text;
  });
}

void DialogWindow::Toggle(const std::wstring& text) const {
  driver::ListView list(driver::FocusIn(Form()));
  const int row = list.Find(text);
  const bool before = list.Row(row).checked;
  for (int at = list.FocusedRow(); at != row; at = list.FocusedRow()) {
    Key(at < row ? VK_DOWN : VK_UP);
    driver::Await("the focus to move in the list", [&] { return list.FocusedRow() != at; });
  }
  Key(VK_SPACE);
  driver::Await("a check box to turn over", [&] { return list.Row(row).checked != before; });
}

void DialogWindow::AwaitClosed() const {
  driver::Await("the dialog to close", [this] { return !IsOpen(); });
}

}  // namespace program
