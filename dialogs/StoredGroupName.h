#pragma once

#include <string>

#include "data/SessionServer.h"

namespace dialogs {

// The names under which groups are stored: a protected group that is shown under its display form
// keeps its own.
class StoredGroupName {
 public:
  // Asks the session server for the display forms.
  explicit StoredGroupName(data::SessionServer& server);

  // The stored form of a trimmed name.
  std::wstring Of(const std::wstring& typed) const;

 private:
  std::wstring administrators_;
  std::wstring everyone_;
};

}  // namespace dialogs
