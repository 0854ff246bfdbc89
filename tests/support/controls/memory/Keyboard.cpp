#include "tests/support/controls/memory/Keyboard.h"

#include <cwctype>

#include "controls/CommandButton.h"
#include "controls/memory/ControlPeer.h"
#include "controls/memory/TreeViewPeer.h"
#include "tests/support/controls/User.h"

namespace test_support {
namespace {

using controls::CommandButton;
using controls::Control;
using controls::Form;
using controls::TreeView;
using controls::TreeViewPeer;

void PressIfUsable(CommandButton* button) {
  if (button != nullptr && button->BackEnd().Usable()) button->BackEnd().PressEnter(*button);
}

void PressEnter(Form::Peer& form) {
  Control* const focused = form.Focused();
  if (focused != nullptr && focused->BackEnd().TakesEnter()) {
    focused->BackEnd().PressEnter(*focused);
  } else {
    PressIfUsable(form.defaultButton);
  }
}

void PressTab(Form::Peer& form, bool backwards) {
  Control* const next = form.NextInTabOrder(form.Focused(), backwards);
  if (next != nullptr) next->SetFocus();
}

bool HasMnemonic(const std::wstring& caption, wchar_t letter) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != L'&') continue;
    if (caption[i + 1] != L'&') return std::towlower(caption[i + 1]) == std::towlower(letter);
    ++i;
  }
  return false;
}

// The control itself where it takes the focus, else the next one that does: a label or a frame
// stands before what it names.
void Answer(Form::Peer& form, Control& control) {
  Control* target = &control;
  if (!control.BackEnd().TakesFocus()) target = form.NextInTabOrder(&control, false);
  if (target == nullptr) return;
  target->SetFocus();
  if (target == &control && control.BackEnd().Usable()) control.BackEnd().PressEnter(control);
}

}  // namespace

void PressOnControls(Form::Peer& form, int keyCode, bool shift) {
  if (keyCode == kKeyEnter) PressEnter(form);
  if (keyCode == kKeyEscape) PressIfUsable(form.cancelButton);
  if (keyCode == kKeyTab) PressTab(form, shift);
  Control* const focused = form.Focused();
  if (keyCode == kKeySpace && focused != nullptr) focused->BackEnd().PressSpace(*focused);
}

void PressCtrlOnControls(Form::Peer& form, int keyCode) {
  if (keyCode != kKeyC && keyCode != kKeyInsert) return;
  if (auto* tree = dynamic_cast<TreeViewPeer*>(
          form.Focused() == nullptr ? nullptr : &form.Focused()->BackEnd())) {
    tree->AskForCopy(static_cast<TreeView&>(*form.Focused()));
  }
}

bool PressMnemonic(Form::Peer& form, wchar_t letter) {
  const std::vector<Control*>& order = form.TabOrder();
  const std::size_t count = order.size();
  const std::size_t first = form.Focused() == nullptr ? 0 : form.TabIndexOf(*form.Focused()) + 1;
  for (std::size_t i = 0; i < count; ++i) {
    Control& control = *order[(first + i) % count];
    const Control::Peer& peer = control.BackEnd();
    if (!peer.Usable() || !HasMnemonic(peer.MarkedCaption(), letter)) continue;
    Answer(form, control);
    return true;
  }
  return false;
}

}  // namespace test_support
