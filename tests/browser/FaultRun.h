#pragma once

#include <functional>
#include <string>

#include "tests/browser/CommandTest.h"
#include "tests/browser/FaultCase.h"
#include "tests/support/walk/Tables.h"

namespace browser {

// Gives commands one of whose calls fails, and keeps what the program reports.
class FaultRun : public CommandTest {
 protected:
  // Asked before each call of the session server whether it is to fail; inside: of an open result
  // set, reading or filling a row.
  using FailAt = std::function<long(const std::wstring& call, bool inside)>;

  // Boxes and dialogs are answered meanwhile.
  void Give(frmUserGroupPerm& window, const FaultCase& test, const FailAt& failAt);

  // What the database holds. Each encryption gives another text, hence none of the passwords'.
  static test_support::Tables Stored(test_support::RawDatabase& raw);

  Strings reports_;  // of the last command

 private:
  void AnswerAll(const FaultCase& test);
  void StopAnswering();
};

}  // namespace browser
