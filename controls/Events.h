#pragma once

#include <exception>
#include <functional>
#include <utility>

#include "controls/Desktop.h"
#include "controls/Form.h"

// How every event procedure of a form is called, whichever back end raises the event.
namespace controls {

// Calls what may run an event procedure. An exception that escapes it is given to the desktop's
// handler; where there is none, or it fails itself, the program ends.
template <class Procedure>
void RunEventProcedure(const Desktop& desktop, Procedure&& procedure) noexcept {
  try {
    procedure();
  } catch (...) {
    if (!desktop.EscapedError) std::terminate();
    desktop.EscapedError();
  }
}

// Raises a control's event, unless nobody listens or the form is unloaded.
template <class... Parameters, class... Arguments>
void Raise(const Form& form, const std::function<void(Parameters...)>& event,
           Arguments&&... arguments) {
  if (!event || !form.IsLoaded()) return;
  RunEventProcedure(form.OwnerDesktop(), [&] { event(std::forward<Arguments>(arguments)...); });
}

}  // namespace controls
