#include "tests/program/driver/Wait.h"

#include <windows.h>

#include "tests/program/driver/Failure.h"

namespace driver {
namespace {

constexpr DWORD kPauseBetweenLooks = 4;

// A window that goes away while it is looked at is no answer yet.
bool Holds(const std::function<bool()>& condition) {
  try {
    return condition();
  } catch (const Failure&) {
    return false;
  }
}

}  // namespace

bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (!Holds(condition)) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    Sleep(kPauseBetweenLooks);
  }
  return true;
}

void Await(const std::string& what, const std::function<bool()>& condition,
           std::chrono::milliseconds patience) {
  if (!WaitUntil(condition, patience)) throw Failure("waited in vain for " + what);
}

}  // namespace driver
