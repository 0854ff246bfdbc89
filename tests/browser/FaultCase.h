#pragma once

#include <functional>
#include <string>
#include <vector>

#include "browser/frmUserGroupPerm.h"
#include "tests/support/controls/User.h"

namespace browser {

// Calls that follow one another in one procedure, which reports what fails in them.
struct FaultPhase {
  enum Kind { kWrite, kRebuild };  // up to the last write, and what brings the trees up to date

  const wchar_t* procedure;
  Kind kind;
  std::vector<std::wstring> beginnings;  // of the calls
};

// A command of the main window with all that it calls.
struct FaultCase {
  const char* name;
  int tree;
  std::wstring key;                                              // of the node that it is given at
  controls::CommandButton* (*button)(frmUserGroupPerm& window);  // null where it has none
  // Fills the dialog in and presses OK; empty for a command that only asks.
  std::function<void(test_support::User& user, controls::Form& form)> Fill;
  std::vector<FaultPhase> phases;
  wchar_t letter = 0;  // gives it together with Control, where it has no button
};

// Finds the phase of each of a command's calls, in the order in which they are made.
class PhaseWalk {
 public:
  explicit PhaseWalk(const FaultCase& test) : phases_(test.phases) {}

  // inside: on an open result set, reading or filling a row. Null for a call that the command has
  // no place for.
  const FaultPhase* Next(const std::wstring& call, bool inside);
  // Whether the last phase has been reached.
  bool AtEnd() const { return at_ + 1 == phases_.size(); }

 private:
  const std::vector<FaultPhase>& phases_;
  std::size_t at_ = 0;
};

// All commands, on the sample as it is cut down for walks.
std::vector<FaultCase> FaultCases();

}  // namespace browser
