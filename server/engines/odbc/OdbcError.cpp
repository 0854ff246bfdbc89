#include "server/engines/odbc/OdbcError.h"

#include <vector>

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/engines/odbc/WideText.h"

namespace server {
namespace {

// The reports that the program shows have one line for the message; some drivers send several.
std::string InOneLine(std::string text) {
  for (char& letter : text) {
    if (letter == '\n' || letter == '\r' || letter == '\t') letter = ' ';
  }
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

}  // namespace

OdbcDiagnosis DiagnosisOf(SQLSMALLINT handleType, SQLHANDLE handle) {
  constexpr SQLSMALLINT kStateLength = 5;
  SQLWCHAR state[kStateLength + 1] = {};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  // A long message is asked for once more, with room for all of it.
  std::vector<SQLWCHAR> message(1024);
  SQLRETURN result = SQLGetDiagRecW(handleType, handle, 1, state, &native, message.data(),
                                    static_cast<SQLSMALLINT>(message.size()), &length);
  if (SQL_SUCCEEDED(result) && static_cast<std::size_t>(length) >= message.size()) {
    message.resize(static_cast<std::size_t>(length) + 1);
    result = SQLGetDiagRecW(handleType, handle, 1, state, &native, message.data(),
                            static_cast<SQLSMALLINT>(message.size()), &length);
  }
  if (!SQL_SUCCEEDED(result)) return {"HY000", "the database driver gives no reason"};
  return {FromOdbc(state, kStateLength),
          InOneLine(FromOdbc(message.data(), static_cast<std::size_t>(length)))};
}

void FailWith(const OdbcDiagnosis& diagnosis) {
  FailDatabase(data::FromUtf8(diagnosis.state + ": " + diagnosis.message));
}

}  // namespace server
