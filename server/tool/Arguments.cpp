#include "server/tool/Arguments.h"

#include <algorithm>
#include <charconv>

namespace tool {
namespace {

const Option& FindOption(std::span<const Option> options, std::string_view name) {
  const auto found = std::find_if(options.begin(), options.end(),
                                  [name](const Option& option) { return option.name == name; });
  if (found == options.end()) throw UsageError("unknown argument " + std::string(name));
  return *found;
}

}  // namespace

Arguments::Arguments(std::span<const std::string> words, std::span<const Option> options) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::size_t sign = words[i].find('=');
    const std::string name = words[i].substr(0, sign);
    const Option& option = FindOption(options, name);
    std::string value;
    if (sign != std::string::npos) {
      if (option.flag) throw UsageError(name + " takes no value");
      value = words[i].substr(sign + 1);
    } else if (!option.flag) {
      if (++i == words.size()) throw UsageError(name + " needs a value");
      value = words[i];
    }
    if (!values_.emplace(name, std::move(value)).second) throw UsageError(name + " given twice");
  }
  for (const Option& option : options) {
    if (option.required && !Has(option.name)) {
      throw UsageError(std::string(option.name) + " is missing");
    }
  }
}

const std::string& Arguments::Value(std::string_view name) const {
  return values_.find(name)->second;
}

int Arguments::Number(std::string_view name, int first, int last, int initial) const {
  if (!Has(name)) return initial;
  const std::string& text = Value(name);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < first || number > last) {
    throw UsageError(std::string(name) + " must be a number from " + std::to_string(first) +
                     " to " + std::to_string(last));
  }
  return number;
}

}  // namespace tool
