#pragma once

#include <filesystem>
#include <iosfwd>
#include <span>
#include <string>

namespace tool {

// What the tool is run with; tests put their own in place.
struct Surroundings {
  std::filesystem::path home;  // of the data sources
  std::istream& in;
  std::ostream& out;
  std::ostream& errors;
};

enum ExitCode { kDone = 0, kFailed = 1, kMisused = 2 };

// Runs vardexctl with the words of its command line, UTF-8, without the program's own name. A
// failure is told in one line on errors.
ExitCode RunTool(std::span<const std::string> words, const Surroundings& surroundings);

}  // namespace tool
