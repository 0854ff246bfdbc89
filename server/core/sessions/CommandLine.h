#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// What names a session to the program: /source:NAME /token:HEX /session:ID. The three may stand in
// any order, in any case, between other arguments, each of them in quotes or not.
namespace server {

struct SessionArguments {
  std::string source;
  std::string token;  // in hexadecimal, as it was handed out
  std::int32_t sessionId = 0;
};

// Reads the arguments from a whole command line. Raises kCommandLineEmpty where none of the three
// is there, and kCommandLineUnreadable where one is missing, stands twice or is malformed.
SessionArguments ParseCommandLine(std::wstring_view commandLine);

// The arguments as a command line.
std::string FormatCommandLine(const SessionArguments& arguments);

// The session text that stands for source and token between ReadCommandLine and OpenSession, and
// back. Parsing raises kCommandLineUnreadable for any other text.
std::wstring FormatSessionText(const SessionArguments& arguments);
SessionArguments ParseSessionText(std::wstring_view sessionText, std::int32_t sessionId);

}  // namespace server
