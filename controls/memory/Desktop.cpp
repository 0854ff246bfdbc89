#include "controls/Desktop.h"

#include <utility>

#include "controls/Form.h"
#include "controls/memory/DesktopPeer.h"
#include "controls/memory/FormPeer.h"
#include "controls/memory/StringTable.h"

namespace controls {

bool Desktop::Peer::HandleInput() {
  if (input.empty()) return false;
  const std::function<void()> next = std::move(input.front());
  input.pop_front();
  next();
  return true;
}

void Desktop::Peer::HandleInputUntilUnloaded(Desktop& desktop, Form& form) {
  if (desktop.Instead.ModalShown) desktop.Instead.ModalShown(form);
  while (form.IsLoaded()) {
    if (!HandleInput()) form.BackEnd().Destroy();
  }
}

Desktop::Desktop() : peer_(std::make_unique<Peer>()) {}
Desktop::~Desktop() = default;

int Desktop::MsgBox(const std::wstring& prompt, int style, const std::wstring& title) {
  if (Instead.MsgBox) return Instead.MsgBox(prompt, style, title);
  return (style & kYesNo) != 0 ? kResultNo : kResultOk;
}

void Desktop::Beep() {
  if (Instead.Beep) Instead.Beep();
}

bool Desktop::SetClipboardText(const std::wstring& text) {
  return Instead.SetClipboardText && Instead.SetClipboardText(text);
}

void Desktop::SetMousePointer(MousePointer pointer) {
  peer_->pointer = pointer;
}

MousePointer Desktop::Pointer() const {
  return peer_->pointer;
}

std::wstring Desktop::LoadResString(int id) const {
  return StringTableText(id);
}

int Desktop::UserDefaultLcid() const {
  return Instead.UserDefaultLcid ? Instead.UserDefaultLcid() : 0;
}

std::wstring Desktop::ProgramFolder() const {
  return Instead.ProgramFolder ? Instead.ProgramFolder() : std::wstring();
}

std::wstring Desktop::CommandLine() const {
  return Instead.CommandLine ? Instead.CommandLine() : std::wstring();
}

HelpOutcome Desktop::HtmlHelp(const Form& form, const std::wstring& file, int topic) {
  return Instead.HtmlHelp ? Instead.HtmlHelp(form, file, topic) : HelpOutcome::kLibraryMissing;
}

void Desktop::Run(Form& form) {
  form.Show();
  if (form.IsLoaded()) peer_->HandleInputUntilUnloaded(*this, form);
}

}  // namespace controls
