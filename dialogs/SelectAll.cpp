#include "dialogs/SelectAll.h"

#include <limits>

namespace dialogs {

void SelectAll(controls::TextBox& box) {
  box.SetSelStart(0);
  box.SetSelLength(std::numeric_limits<int>::max());  // without a copy of what may be a password
}

}  // namespace dialogs
