#pragma once

#include <functional>
#include <string>

#include "app/mGlobal.h"
#include "controls/TreeNodes.h"

namespace controls {
class Form;
}

namespace browser {

// The export of who may do what to a file of the user's choice, a table or a page. It reads the
// trees and asks the database nothing.
class RightsExport {
 public:
  // All of it outlives it. form is the window that the questions stand over.
  RightsExport(const app::mGlobal& global, const controls::Form& form,
               const controls::TreeNodes& users, const controls::TreeNodes& groups)
      : global_(global), form_(form), users_(users), groups_(groups) {}

  // Asks for the file; false where the user does not want one.
  bool AskWhere();
  // Writes it, and tells meanwhile how many of the users are done. Escape stops it. What it answers
  // is for the status line: the file, or that it was stopped; nothing after an error, which has
  // been reported. permissions is how many the catalogue has; incomplete says that the trees lack
  // something, which the file and a message tell then.
  std::wstring Write(int permissions, bool incomplete,
                     const std::function<void(int done, int total)>& progress);

 private:
  bool WriteFile(int permissions, bool incomplete,
                 const std::function<void(int done, int total)>& progress) const;

  const app::mGlobal& global_;
  const controls::Form& form_;
  const controls::TreeNodes& users_;
  const controls::TreeNodes& groups_;
  std::wstring path_;
};

}  // namespace browser
