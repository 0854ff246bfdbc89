#include "controls/TabOrder.h"

#include <algorithm>
#include <utility>

#include "controls/Events.h"

namespace controls {

TabOrder::TabOrder(const Form& form, std::function<void()> moved)
    : form_(form), moved_(std::move(moved)) {}

void TabOrder::Add(ControlModel& control) {
  constructed_.push_back(&control);
  order_.push_back(&control);
}

void TabOrder::Remove(const ControlModel& control) {
  std::erase(constructed_, &control);
  std::erase(order_, &control);
  for (ControlModel** held : {&holder_, &wanted_, &default_, &cancel_}) {
    if (*held == &control) *held = nullptr;
  }
}

void TabOrder::Restart() {
  order_ = constructed_;
  for (ControlModel** held : {&holder_, &wanted_, &default_, &cancel_}) *held = nullptr;
}

int TabOrder::IndexOf(const ControlModel& control) const {
  return static_cast<int>(std::find(order_.begin(), order_.end(), &control) - order_.begin());
}

void TabOrder::SetIndex(ControlModel& control, int index) {
  std::erase(order_, &control);
  const int last = static_cast<int>(order_.size());
  order_.insert(order_.begin() + std::clamp(index, 0, last), &control);
}

ControlModel* TabOrder::TakeFirst() {
  ControlModel* const wanted = std::exchange(wanted_, nullptr);
  return wanted && wanted->MayHaveFocus() ? wanted : Next(nullptr, false);
}

ControlModel* TabOrder::Next(const ControlModel* from, bool backwards) const {
  const int count = static_cast<int>(order_.size());
  const int start = from ? IndexOf(*from) : (backwards ? 0 : -1);
  for (int step = 1; step <= count; ++step) {
    const int index = ((backwards ? start - step : start + step) % count + count) % count;
    ControlModel* const candidate = order_[static_cast<std::size_t>(index)];
    if (candidate != from && candidate->MayHaveFocus()) return candidate;
  }
  return nullptr;
}

void TabOrder::MoveTo(ControlModel* control) {
  if (holder_ == control || !form_.IsVisible()) return;
  ++moves_;
  const ControlModel* const left = std::exchange(holder_, control);
  if (moved_) moved_();
  if (left) Raise(form_, left->control->LostFocus);
  // The procedure may have moved the focus on, or unloaded the form.
  if (!control || holder_ != control || !form_.IsVisible()) return;
  control->FocusGained();
  Raise(form_, control->control->GotFocus);
}

bool TabOrder::TurnTabs(bool backwards) const {
  for (ControlModel* control : order_) {
    if (control->MayHaveFocus() && control->TurnTabs(backwards)) return true;
  }
  return false;
}

}  // namespace controls
