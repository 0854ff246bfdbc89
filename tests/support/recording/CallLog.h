#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "data/RunTimeError.h"

namespace testing_support {

// What a recorded session server and its connections were asked, in order, and where they are to
// fail.
struct CallLog {
  // Every call of the session server ("OpenSession", "GetDisplayName 104 Everyone").
  std::vector<std::wstring> serverCalls;
  // Every statement opened or executed, and "BeginRead" and "EndRead".
  std::vector<std::wstring> statements;

  // Asked before each call or statement with its text; a number other than 0 makes it fail with
  // that error. Empty: nothing fails.
  std::function<long(const std::wstring& call)> FailAt;
  // Given out instead of the session's own rights mask.
  std::optional<std::int32_t> rights;

  void Server(const std::wstring& call) {
    serverCalls.push_back(call);
    Fail(call);
  }
  void Statement(const std::wstring& text) {
    statements.push_back(text);
    Fail(text);
  }

 private:
  void Fail(const std::wstring& call) const {
    const long number = FailAt ? FailAt(call) : 0;
    if (number != 0) throw data::RunTimeError(number, L"injected: " + call);
  }
};

}  // namespace testing_support
