#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "app/JournalRecord.h"

namespace app {

// What was read of a journal.
struct JournalContent {
  std::vector<JournalRecord> records;  // the latest first
  int unreadable = 0;                  // lines that are none of the journal's, or not whole
  bool hasMore = false;                // there are older lines, which were not read
  bool failed = false;                 // the folder, or a file in it, could not be read
};

// How much of a journal is read: so many entries, out of so many bytes. A command that has changed
// thirty thousand links is a line of 200 KB, and nobody waits until thousands of them are read.
struct JournalBounds {
  std::size_t records = 5000;
  std::int64_t bytes = std::int64_t{32} << 20;
};

// The latest lines of the journal in a folder. Its files are open only while they are read, so that
// other programs go on writing. A folder that is not there is an empty journal.
JournalContent ReadJournal(const std::wstring& folder, const JournalBounds& bounds = {});

}  // namespace app
