#include "tests/support/controls/memory/Keyboard.h"

#include <cwctype>

#include "controls/memory/ControlPeer.h"
#include "controls/memory/ListViewPeer.h"
#include "controls/memory/TreeViewPeer.h"
#include "tests/support/controls/User.h"

namespace test_support {
namespace {

using controls::Control;
using controls::ControlModel;
using controls::Form;
using controls::ListViewPeer;
using controls::TreeViewPeer;

// Null where nothing is meant.
Control* ControlOf(const ControlModel* model) {
  return model == nullptr ? nullptr : model->control;
}

void PressIfUsable(Control* button) {
  if (button != nullptr && button->BackEnd().Usable()) button->BackEnd().PressEnter();
}

void PressTab(Form::Peer& form, bool backwards) {
  Control* const next = ControlOf(form.order.Next(form.order.Holder(), backwards));
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
  if (!control.BackEnd().TakesFocus()) {
    target = ControlOf(form.order.Next(&control.BackEnd(), false));
  }
  if (target == nullptr) return;
  target->SetFocus();
  if (target == &control && control.BackEnd().Usable()) control.BackEnd().PressEnter();
}

}  // namespace

void PressOnControls(Form::Peer& form, int keyCode, bool shift) {
  if (keyCode == kKeyEnter && !form.order.TakeEnter()) {
    PressIfUsable(ControlOf(form.order.EnterButton()));
  }
  if (keyCode == kKeyEscape) PressIfUsable(ControlOf(form.order.EscapeButton()));
  if (keyCode == kKeyTab) PressTab(form, shift);
  Control* const focused = ControlOf(form.order.Holder());
  if (keyCode == kKeySpace && focused != nullptr) focused->BackEnd().PressSpace();
}

void PressCtrlOnControls(Form::Peer& form, int keyCode) {
  if (keyCode == kKeyTab || keyCode == kKeyPageUp || keyCode == kKeyPageDown) {
    form.order.TurnTabs(keyCode == kKeyPageUp);
  }
  Control* const focused = ControlOf(form.order.Holder());
  if (focused == nullptr) return;
  auto* const list = dynamic_cast<ListViewPeer*>(&focused->BackEnd());
  if (list != nullptr && keyCode == kKeyA) list->model.SelectAll();
  if (keyCode != kKeyC && keyCode != kKeyInsert) return;
  if (list != nullptr) list->model.AskForCopy();
  if (auto* tree = dynamic_cast<TreeViewPeer*>(&focused->BackEnd())) tree->model.AskForCopy();
}

bool PressMnemonic(Form::Peer& form, wchar_t letter) {
  const std::vector<ControlModel*>& order = form.order.Order();
  const ControlModel* const holder = form.order.Holder();
  const std::size_t count = order.size();
  const std::size_t first = holder == nullptr ? 0 : form.order.IndexOf(*holder) + 1;
  for (std::size_t i = 0; i < count; ++i) {
    Control& control = *order[(first + i) % count]->control;
    const Control::Peer& peer = control.BackEnd();
    if (!peer.Usable() || !HasMnemonic(peer.MarkedCaption(), letter)) continue;
    Answer(form, control);
    return true;
  }
  return false;
}

}  // namespace test_support
