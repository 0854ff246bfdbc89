#pragma once

#include <string_view>

#include "data/RunTimeError.h"
#include "data/SessionServer.h"

// Every failure of the session server is a data::RunTimeError. What the database refuses, and what
// the statement guard refuses in its name, carries kDatabaseError and the database's own message.
// Everything else has a number of its own, 0x80040200 + n as a signed 32-bit value, and a French
// text that says what to do about it.
namespace server {

enum SessionError : long {
  kDatabaseError = -2147467259,  // 0x80004005

  kCommandLineEmpty = -2147220991,            // 1: no session named on the command line
  kCommandLineUnreadable = -2147220990,       // 2: argument missing, repeated or malformed
  kSourceUnknown = -2147220989,               // 3: no data source of that name
  kSourceUnreadable = -2147220988,            // 4: the data source's description is incomplete
  kSessionUnknown = -2147220987,              // 5: never opened, or long forgotten
  kSessionClosed = -2147220986,               // 6: opened once and closed since
  kTokenWrong = -2147220985,                  // 7: the session exists, the token is another one
  kSessionUserGone = -2147220984,             // 8: the session's user was deleted meanwhile
  kNoSessionOpen = -2147220983,               // 9: a call that needs OpenSession first
  kSessionAlreadyOpen = -2147220982,          // 10: OpenSession twice
  kCounterUnknown = -2147220981,              // 11: NewIdentifier of another name
  kCounterExhausted = -2147220980,            // 12: no 32-bit identifier is left
  kPasswordUnreadable = -2147220979,          // 13: empty, altered, another user's, another key's
  kPasswordVersion = -2147220978,             // 14: stored in a form that this server does not know
  kKeyFileUnreadable = -2147220977,           // 15: missing, or not a key
  kRandomFailed = -2147220976,                // 16: the system gives no random numbers
  kResultSetClosed = -2147220975,             // 17: a result set used after Close
  kNoCurrentRow = -2147220974,                // 18: before the first or after the last row
  kColumnUnknown = -2147220973,               // 19: no such name or position in the result set
  kSetNotWritable = -2147220972,              // 20: AddNew or Edit where rows cannot be written
  kNothingToWrite = -2147220971,              // 21: SetColumn or Update without AddNew or Edit
  kKeyMissing = -2147220970,                  // 22: a new row without its identifiers
  kRowGone = data::kRowGone,                  // 23: changed or deleted by somebody else
  kReadNotBegun = -2147220968,                // 24: EndRead without BeginRead
  kDatabasePasswordUnreadable = -2147220967,  // 25: the file with the database's password
  kWriteUncertain = -2147220966,              // 26: the connection was lost during a write
  kSessionRightLost = -2147220965,            // 27: the session's user is no administrator any more
};

// Raises the error with its text. detail names the thing that the text speaks of.
[[noreturn]] void Fail(SessionError error, std::wstring_view detail = {});

// Raises kDatabaseError with a message of the database.
[[noreturn]] void FailDatabase(std::wstring_view message);

}  // namespace server
