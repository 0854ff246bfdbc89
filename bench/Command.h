#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bench/Program.h"

namespace bench {

// A command of the program that is measured.
struct Command {
  const char* name;
  int tree;
  std::string key;  // the node that is selected
  std::function<void(browser::frmUserGroupPerm& window)> press;
  std::function<void(controls::Form& form)> answer;  // what is done in its dialog
  std::vector<std::string> writes;                   // what the dialog's result sets write
  std::vector<std::string> undo;
};

std::string Number(std::int64_t number);

// Puts a user into a group; the folders of all accounts are read again.
Command AddMember(test_support::RawDatabase& raw, int group);

// Selects the command's node on its tab.
void Select(browser::frmUserGroupPerm& window, const Command& command);

}  // namespace bench
