// The command line of a session and the text that stands for it afterwards: refused with one of
// their own two errors, or read so that what is read, written down again, reads the same.

#include "data/RunTimeError.h"
#include "fuzz/Input.h"
#include "server/core/Errors.h"
#include "server/core/sessions/CommandLine.h"

namespace {

bool Same(const server::SessionArguments& left, const server::SessionArguments& right) {
  return left.source == right.source && left.token == right.token &&
         left.sessionId == right.sessionId;
}

void RequireOwnError(const data::RunTimeError& error) {
  fuzz::Require(error.Number() == server::kCommandLineEmpty ||
                    error.Number() == server::kCommandLineUnreadable,
                "an error of the command line");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* start, std::size_t size) {
  const std::wstring text = fuzz::Wide(fuzz::Bytes(start, size));
  try {
    const server::SessionArguments read = server::ParseCommandLine(text);
    fuzz::Require(read.sessionId >= 0, "a session's number is none below 0");
    const std::wstring again = data::FromUtf8(server::FormatCommandLine(read));
    fuzz::Require(Same(read, server::ParseCommandLine(again)), "it reads the same again");
    const std::wstring session = server::FormatSessionText(read);
    fuzz::Require(Same(read, server::ParseSessionText(session, read.sessionId)),
                  "its text stands for it");
  } catch (const data::RunTimeError& error) {
    RequireOwnError(error);
  }
  try {
    const server::SessionArguments read = server::ParseSessionText(text, 1);
    fuzz::Require(server::FormatSessionText(read) == text, "the text stands for what it says");
  } catch (const data::RunTimeError& error) {
    RequireOwnError(error);
  }
  return 0;
}
