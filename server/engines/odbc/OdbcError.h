#pragma once

#include <string>

#include "server/engines/odbc/OdbcHeaders.h"

namespace server {

// What a driver, or the driver manager, has to say about the last call on a handle.
struct OdbcDiagnosis {
  std::string state;    // the SQLSTATE, five letters
  std::string message;  // UTF-8, one line, whole
};

// The first diagnosis; where there is none, one that says so under the general state HY000.
OdbcDiagnosis DiagnosisOf(SQLSMALLINT handleType, SQLHANDLE handle);

// Raises a database error with the state in front of the message.
[[noreturn]] void FailWith(const OdbcDiagnosis& diagnosis);

}  // namespace server
