#include <algorithm>

#include "controls/memory/ControlPeer.h"
#include "controls/memory/Events.h"
#include "controls/memory/FormPeer.h"

namespace controls {

int Form::Peer::TabIndexOf(const Control& control) const {
  const auto place = std::find(tabOrder_.begin(), tabOrder_.end(), &control);
  return static_cast<int>(place - tabOrder_.begin());
}

void Form::Peer::MoveInTabOrder(Control& control, int index) {
  tabOrder_.erase(tabOrder_.begin() + TabIndexOf(control));
  const auto place = std::clamp(index, 0, static_cast<int>(tabOrder_.size()));
  tabOrder_.insert(tabOrder_.begin() + place, &control);
}

bool Form::Peer::CanFocus(const Control& control) {
  return control.BackEnd().TakesFocus() && control.BackEnd().Usable();
}

void Form::Peer::SetFocus(Control& control) {
  if (!loaded || !CanFocus(control)) return;
  if (visible) {
    MoveFocus(&control);
  } else {
    focus_ = &control;
  }
}

void Form::Peer::StartFocus() {
  Control* const wanted = focus_;
  focus_ = nullptr;
  if (wanted != nullptr && CanFocus(*wanted)) {
    MoveFocus(wanted);
  } else {
    MoveFocus(NextInTabOrder(nullptr, false));
  }
}

void Form::Peer::KeepFocusUsable() {
  if (!visible || focus_ == nullptr || CanFocus(*focus_)) return;
  MoveFocus(NextInTabOrder(focus_, false));
}

Control* Form::Peer::NextInTabOrder(const Control* from, bool backwards) const {
  const int count = static_cast<int>(tabOrder_.size());
  const int step = backwards ? -1 : 1;
  int place = backwards ? count : -1;
  if (from != nullptr) place = TabIndexOf(*from);
  for (int i = 0; i < count; ++i) {
    place = ((place + step) % count + count) % count;
    if (CanFocus(*tabOrder_[place])) return tabOrder_[place];
  }
  return nullptr;
}

void Form::Peer::MoveFocus(Control* to) {
  if (focus_ == to) return;
  const Control* const from = focus_;
  focus_ = to;
  if (from != nullptr) Raise(form, from->LostFocus);
  // The procedure that ran may have moved the focus on, or unloaded the form.
  if (to == nullptr || focus_ != to || !visible) return;
  to->BackEnd().FocusGained();
  Raise(form, to->GotFocus);
}

}  // namespace controls
