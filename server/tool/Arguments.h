#pragma once

#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

// What a command takes: options that carry a value, and flags that are there or not.
struct Option {
  std::string_view name;  // with its two dashes
  bool flag = false;
  bool required = false;
};

// The tool was not called as its help says. The text is one line for the user.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The options of one call: --name value, --name=value, or --name alone for a flag. Texts are UTF-8.
class Arguments {
 public:
  // Raises UsageError for what the command does not take, takes once only, or misses.
  Arguments(std::span<const std::string> words, std::span<const Option> options);

  bool Has(std::string_view name) const { return values_.contains(name); }
  // The value of a required option, or of one that is known to be there.
  const std::string& Value(std::string_view name) const;
  // A number between first and last; initial where the option is missing.
  int Number(std::string_view name, int first, int last, int initial = 0) const;

 private:
  std::map<std::string, std::string, std::less<>> values_;
};

}  // namespace tool
