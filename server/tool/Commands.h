#pragma once

#include <span>
#include <stdexcept>
#include <string_view>

#include "server/tool/Arguments.h"
#include "server/tool/Tool.h"

namespace tool {

// A command could not do what it was asked. The text is one line for the user.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Command {
  std::string_view name;
  std::span<const Option> options;
  void (*run)(const Arguments& arguments, const Surroundings& surroundings);
};

// All commands of the tool.
std::span<const Command> Commands();

}  // namespace tool
