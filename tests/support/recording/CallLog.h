#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "data/RunTimeError.h"

namespace test_support {

// What a recorded session server and its connections were asked, in order, and where they are to
// fail.
struct CallLog {
  // Every call of the session server ("OpenSession", "GetDisplayName 104 Everyone").
  std::vector<std::wstring> serverCalls;
  // Every statement opened or executed, and "BeginRead" and "EndRead".
  std::vector<std::wstring> statements;
  // All of both in one order, and between them every step of writing by an open result set, with
  // the set's statement: "MoveFirst SELECT ...", "AddNew SELECT ...", "Edit SELECT ...", "Update
  // SELECT ...".
  std::vector<std::wstring> calls;

  // Asked before each of these calls with its text; a number other than 0 makes it fail with
  // that error. Empty: nothing fails.
  std::function<long(const std::wstring& call)> FailAt;
  // The same for what a result set does besides, which is not recorded as it would drown the rest:
  // "EndOfRows SELECT ...", "Column 2 SELECT ...", "MoveNext SELECT ...", "SetColumn NAME SELECT
  // ...", "Close SELECT ...".
  std::function<long(const std::wstring& call)> FailInside;
  // Given out instead of the session's own rights mask.
  std::optional<std::int32_t> rights;

  void Server(const std::wstring& call) {
    serverCalls.push_back(call);
    Step(call);
  }
  void Statement(const std::wstring& text) {
    statements.push_back(text);
    Step(text);
  }
  void Step(const std::wstring& call) {
    calls.push_back(call);
    if (FailAt) Fail(FailAt(call), call);
  }
  void Inside(const std::wstring& call) {
    if (FailInside) Fail(FailInside(call), call);
  }

 private:
  static void Fail(long number, const std::wstring& call) {
    if (number != 0) throw data::RunTimeError(number, L"injected: " + call);
  }
};

}  // namespace test_support
