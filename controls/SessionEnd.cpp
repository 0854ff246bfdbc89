#include "controls/SessionEnd.h"

#include "controls/Desktop.h"
#include "controls/Form.h"

namespace controls {

// The reason comes before the question: the system may be showing it before there is an answer.
bool MayEndSession(Form& form, bool takesInput) {
  const std::wstring reason = form.UnsavedChanges();
  if (reason.empty()) return true;
  form.OwnerDesktop().BlockSessionEnd(form, reason);
  if (takesInput) form.Unload();
  return !form.IsLoaded();
}

}  // namespace controls
