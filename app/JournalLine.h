#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/WriteObserver.h"

namespace app {

// What was changed at the command of a user, and how that went.
struct JournalEntry {
  // The account that the command was given for.
  struct Account {
    data::Table table = data::Table::kOther;  // of users or of groups
    std::int32_t id = -1;
    std::wstring name;
  };
  struct Error {
    long number = 0;
    std::wstring text;  // empty where it might tell a secret
  };

  std::wstring what;  // in words
  bool complete = true;
  std::optional<Account> account;
  std::vector<data::Write> writes;
  std::optional<Error> error;
};

// Who works with the program, and where.
struct JournalAuthor {
  std::wstring computer;
  std::wstring user;     // of the operating system
  std::wstring session;  // the session server's text for its user
};

using JournalTime = std::chrono::system_clock::time_point;

// A line of the journal, with its end: JSON in UTF-8.
std::string JournalLine(JournalTime time, const JournalAuthor& author, const JournalEntry& entry);

// The file of the month that a time is in.
std::wstring JournalFileName(JournalTime time);

}  // namespace app
