#include "controls/Desktop.h"

#include <utility>

#include "controls/Form.h"
#include "controls/memory/DesktopPeer.h"
#include "controls/memory/FormPeer.h"

namespace controls {

bool Desktop::Peer::HandleOne() {
  if (input.empty()) return false;
  const std::function<void()> next = std::move(input.front());
  input.pop_front();
  next();
  return true;
}

void Desktop::Peer::HandleUntilUnloaded(Form& form) {
  while (form.IsLoaded()) {
    if (!HandleOne()) form.BackEnd().Destroy();
  }
}

Desktop::Desktop(System& system) : system_(system), peer_(std::make_unique<Peer>()) {}
Desktop::~Desktop() = default;

// In memory no form stands out as the one that the user has before him.
int Desktop::MsgBox(const std::wstring& prompt, int style, const std::wstring& title) {
  return system_.MsgBox(nullptr, prompt, style, title);
}

bool Desktop::SetClipboardText(const std::wstring& text) {
  return system_.SetClipboardText(nullptr, text);
}

void Desktop::SetMousePointer(MousePointer pointer) {
  peer_->pointer = pointer;
}

MousePointer Desktop::Pointer() const {
  return peer_->pointer;
}

void Desktop::Run(Form& form) {
  form.Show();
  if (form.IsLoaded()) HandleInput(form);
}

void Desktop::HandleInput(Form& form) {
  system_.HandleInput(form);
}

}  // namespace controls
