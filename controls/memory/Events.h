#pragma once

#include <exception>
#include <functional>
#include <utility>

#include "controls/Desktop.h"
#include "controls/Form.h"

namespace controls {

// Runs an event procedure of a form; an exception that escapes it ends here.
template <class Procedure>
void RunGuarded(Desktop& desktop, Procedure&& procedure) noexcept {
  try {
    procedure();
  } catch (...) {
    if (!desktop.EscapedError) std::terminate();
    desktop.EscapedError();
  }
}

// Raises a control's event, unless nobody listens or the form is gone.
template <class... Parameters, class... Arguments>
void Raise(const Form& form, const std::function<void(Parameters...)>& event,
           Arguments&&... arguments) {
  if (!event || !form.IsLoaded()) return;
  RunGuarded(form.OwnerDesktop(), [&] { event(std::forward<Arguments>(arguments)...); });
}

}  // namespace controls
