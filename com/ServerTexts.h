#pragma once

#include <string>

namespace com {

// What the program tells its user when the session server cannot be reached: errors that only the
// adapter can tell apart and for which no one else has a text.
struct ServerTexts {
  std::wstring notRegistered;       // nothing is registered under the ProgID
  std::wstring fileMissing;         // registered, but the registered file is not there
  std::wstring wrongBitness;        // made for programs of the other word size
  std::wstring lost = {};           // the server ended in the middle of a call
  std::wstring memberMissing = {};  // %1: the member that the server does not have
  std::wstring forUserOnly = {};  // registered for the user, which an elevated program does not see
  std::wstring busy = {};         // the server, in another process, did not take the call
};

}  // namespace com
