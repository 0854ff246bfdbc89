#pragma once

#include "tests/support/walk/Expected.h"
#include "tests/support/walk/Walk.h"

namespace test_support {

// What holds after every step: the window shows the expected state, and that is what the database
// says. Each check stands for itself; a new one is called in AfterStep.
class Checks {
 public:
  Checks(Walk& walk, Expected& expected) : walk_(walk), expected_(expected) {}

  void AfterStep();

 private:
  void CheckTrees() const;
  void CheckDifferences(const Tables& now);
  void CheckOrder(int tree) const;
  void CheckCounts(int tree) const;
  void CheckButtons(int tree);
  void CheckOnView(int tree);
  int CountFound(int tree) const;
  void CheckSelection() const;
  void CheckProtected(const Tables& now) const;
  void CheckStatements();
  void CheckStatus(const Tables& now) const;
  void CheckWindow() const;
  std::string WantedButtons(int tree) const;

  Walk& walk_;
  Expected& expected_;
};

}  // namespace test_support
