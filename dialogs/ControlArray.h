#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>

#include "controls/Form.h"

namespace dialogs {

// Controls of one kind and name, told apart by numbers that need not follow one another: List1[2],
// cmdBtn[21]. In the dialog template each has its number added to a first id.
template <class ControlKind, int... kNumbers>
class ControlArray {
 public:
  ControlArray(controls::Form& form, int firstId) : controls_{{{form, firstId + kNumbers}...}} {}
  // With one more argument for each control.
  template <class... Details>
  ControlArray(controls::Form& form, int firstId, Details... details)
      : controls_{{{form, firstId + kNumbers, details}...}} {}

  ControlKind& operator[](int number) { return controls_[Place(number)]; }
  const ControlKind& operator[](int number) const { return controls_[Place(number)]; }

  const auto& Numbers() const { return kAll; }

 private:
  static constexpr std::array<int, sizeof...(kNumbers)> kAll = {kNumbers...};

  static constexpr std::size_t Place(int number) {
    return static_cast<std::size_t>(std::find(kAll.begin(), kAll.end(), number) - kAll.begin());
  }

  std::array<ControlKind, sizeof...(kNumbers)> controls_;
};

// Gives the controls of a form the order in which the Tab key is to come to them.
inline void SetTabOrder(std::initializer_list<controls::Control*> order) {
  int place = 0;
  for (controls::Control* control : order) control->SetTabIndex(place++);
}

}  // namespace dialogs
