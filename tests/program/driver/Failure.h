#pragma once

#include <stdexcept>
#include <string>

namespace driver {

// What the driver throws when the program does not do what was waited for, or does not answer.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& what) : std::runtime_error(what) {}
};

}  // namespace driver
