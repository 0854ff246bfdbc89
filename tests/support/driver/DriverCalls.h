#pragma once

#include <functional>
#include <string>

namespace test_support {

// What a program that links this library asks of a database driver: one at a time is watched. Calls
// that give something back (freeing, closing, the text of an error) cannot fail and are left out.
class DriverCalls {
 public:
  // Asked before each call, with the function's name; whoever answers true has it fail instead of
  // being made, with the state HY000 and the message InjectedMessage. Not called for what the
  // listener itself asks of the driver, nor for another listener's calls. It may be called in the
  // thread of a connection.
  using Listener = std::function<bool(const std::string& function)>;

  explicit DriverCalls(Listener listener);
  ~DriverCalls();
  DriverCalls(const DriverCalls&) = delete;
  DriverCalls& operator=(const DriverCalls&) = delete;

  static std::string InjectedMessage(const std::string& function);
};

}  // namespace test_support
