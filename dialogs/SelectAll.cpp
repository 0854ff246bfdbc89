#include "dialogs/SelectAll.h"

namespace dialogs {

void SelectAll(controls::TextBox& box) {
  box.SetSelStart(0);
  box.SetSelLength(static_cast<int>(box.Text().size()));
}

void SelectAllOnFocus(controls::TextBox& box) {
  box.GotFocus = [&box] { SelectAll(box); };
}

}  // namespace dialogs
