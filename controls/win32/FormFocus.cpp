#include "controls/win32/FormFocus.h"

#include <algorithm>

#include "controls/win32/FormPeer.h"

namespace controls {

void FormFocus::Add(Control::Peer& control) {
  constructed_.push_back(&control);
  order_.push_back(&control);
}

void FormFocus::Remove(const Control::Peer& control) {
  std::erase(constructed_, &control);
  std::erase(order_, &control);
  if (holder_ == &control) holder_ = nullptr;
  if (wanted_ == &control) wanted_ = nullptr;
  if (default_ == &control) default_ = nullptr;
  if (cancel_ == &control) cancel_ = nullptr;
}

void FormFocus::Reset() {
  order_ = constructed_;
  holder_ = nullptr;
  wanted_ = nullptr;
  default_ = nullptr;
  cancel_ = nullptr;
}

void FormFocus::Give(Control::Peer& control) {
  if (!form_.shown) {
    wanted_ = &control;
    return;
  }
  const unsigned before = moves_;
  if (GetFocus() != control.window && IsWindowEnabled(form_.window)) ::SetFocus(control.window);
  // A procedure that was told of it may have moved the focus on, or unloaded the form.
  if (moves_ == before) MovedTo(&control);
}

void FormFocus::Start() {
  Control::Peer* wanted = std::exchange(wanted_, nullptr);
  Control::Peer* first = wanted && wanted->MayHaveFocus() ? wanted : NextTo(nullptr, false);
  if (first) Give(*first);
}

void FormFocus::MovedTo(Control::Peer* control) {
  if (holder_ == control || !form_.shown) return;
  ++moves_;
  const Control::Peer* left = std::exchange(holder_, control);
  ShowDefaultButton();
  if (left) left->Raise(left->control->LostFocus);
  // The procedure may have moved the focus on, or unloaded the form.
  if (!control || holder_ != control || !form_.shown) return;
  control->FocusGained();
  control->Raise(control->control->GotFocus);
}

void FormFocus::Restore() const {
  if (holder_ && holder_->MayHaveFocus() && GetFocus() != holder_->window) {
    ::SetFocus(holder_->window);
  }
}

void FormFocus::LeaveUnfit() {
  if (!holder_ || holder_->MayHaveFocus()) return;
  Control::Peer* next = NextTo(holder_, false);
  if (next) {
    Give(*next);
  } else {
    // A hidden window would go on taking the keys.
    if (GetFocus() == holder_->window) ::SetFocus(form_.window);
    MovedTo(nullptr);
  }
}

void FormFocus::Advance(bool backwards) {
  Control::Peer* next = NextTo(holder_, backwards);
  if (next) Give(*next);
}

// The next control in the order, round its end, that may have the focus. From null, the first.
Control::Peer* FormFocus::NextTo(const Control::Peer* control, bool backwards) const {
  const int count = static_cast<int>(order_.size());
  const int from = control ? IndexOf(*control) : (backwards ? 0 : -1);
  for (int step = 1; step <= count; ++step) {
    const int index = ((backwards ? from - step : from + step) % count + count) % count;
    Control::Peer* candidate = order_[static_cast<std::size_t>(index)];
    if (candidate != control && candidate->MayHaveFocus()) return candidate;
  }
  return nullptr;
}

int FormFocus::IndexOf(const Control::Peer& control) const {
  return static_cast<int>(std::find(order_.begin(), order_.end(), &control) - order_.begin());
}

void FormFocus::SetIndex(Control::Peer& control, int index) {
  std::erase(order_, &control);
  const int last = static_cast<int>(order_.size());
  order_.insert(order_.begin() + std::clamp(index, 0, last), &control);
}

void FormFocus::SetDefaultButton(Control::Peer& button) {
  default_ = &button;
  ShowDefaultButton();
}

Control::Peer* FormFocus::EnterButton() const {
  return holder_ && holder_->IsButton() ? holder_ : default_;
}

// The button that Enter presses has the thick border.
void FormFocus::ShowDefaultButton() const {
  const Control::Peer* pressed = EnterButton();
  for (const Control::Peer* control : order_) {
    if (!control->window || !control->IsButton()) continue;
    const LONG_PTR style = GetWindowLongPtrW(control->window, GWL_STYLE);
    const LONG_PTR type = control == pressed ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
    if ((style & BS_TYPEMASK) == type) continue;
    control->Send(BM_SETSTYLE, static_cast<WPARAM>((style & 0xFFFF & ~BS_TYPEMASK) | type), TRUE);
  }
}

}  // namespace controls
