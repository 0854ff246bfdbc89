#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/JournalLine.h"

namespace app {

// A line of the journal as it is shown: who did what to whom, when, and how that went. Which rows
// were written is left out.
struct JournalRecord {
  JournalTime time;
  JournalAuthor author;
  std::wstring what;                 // in words
  std::wstring account;              // the name of the one concerned, empty where the line has none
  std::optional<std::int64_t> rows;  // nothing when it is not known
  std::optional<JournalEntry::Error> error;  // of a command that did not come to its end
};

// Reads a line, with its end or without. Nothing for one that JournalLine has not written whole.
std::optional<JournalRecord> ReadJournalLine(std::string_view line);

}  // namespace app
