#include "server/tool/DatabaseTrouble.h"

#include <string_view>

#include "data/Text.h"
#include "server/tool/Messages.h"

namespace tool {
namespace {

// A piece of the messages that mean a certain trouble. Those of ODBC begin with a state of five
// letters, but servers and drivers use the states so differently that their words tell more. The
// first that fits holds.
struct Sign {
  std::string_view piece;
  std::string_view words;
};

constexpr std::string_view kRefused = "the database refuses the user or the password";
constexpr std::string_view kNoDatabase = "the database does not exist";
constexpr std::string_view kNoSchema =
    "the database holds no schema, or only a part of one; create-database makes one in an empty "
    "database";
constexpr std::string_view kOlder = "the schema is of another version";
constexpr std::string_view kNoRight =
    "the database's user lacks a right; \"grants\" prints those that he needs";
constexpr std::string_view kUnreachable = "the database cannot be reached";

constexpr Sign kSigns[] = {
    {"password authentication failed", kRefused},
    {"28000: ", kRefused},
    {"28P01: ", kRefused},
    {"no password supplied", kRefused},
    {"Unknown database", kNoDatabase},
    {"3D000: ", kNoDatabase},
    {"FATAL:  database \"", kNoDatabase},
    {"42501: ", kNoRight},
    {"command denied to user", kNoRight},
    {"to database '", kNoRight},
    {"attempt to write a readonly database", kNoRight},
    {"42P01: ", kNoSchema},
    {"42S02: ", kNoSchema},
    {"no such table", kNoSchema},
    {"42703: ", kOlder},
    {"42S22: ", kOlder},
    {"no such column", kOlder},
    {"has no column named", kOlder},
    {"08001: ", kUnreachable},
    {"08S01: ", kUnreachable},
    {"Can't connect to", kUnreachable},
    {"Unknown server host", kUnreachable},
    {"unable to open database file", kUnreachable},
    {"IM002: ", kUnreachable},
    {"Can't open lib", kUnreachable},
};

}  // namespace

std::string TroubleInWords(const data::RunTimeError& error) {
  const std::string message = MessageOf(error);
  for (const Sign& sign : kSigns) {
    if (message.find(sign.piece) != std::string::npos) {
      return std::string(sign.words) + ": " + message;
    }
  }
  return message;
}

}  // namespace tool
