#include "server/tool/Messages.h"

#include "data/Text.h"
#include "server/core/Errors.h"

namespace tool {

std::string MessageOf(const data::RunTimeError& error) {
  switch (error.Number()) {
    case server::kSourceUnknown:
      return "no such data source";
    case server::kSourceUnreadable:
      return "the data source's description is incomplete or cannot be written";
    case server::kSessionUnknown:
      return "no such session";
    case server::kSessionClosed:
      return "the session is closed already";
    case server::kCounterUnknown:
    case server::kCounterExhausted:
      return "the database has no identifiers left to give";
    case server::kPasswordUnreadable:
    case server::kPasswordVersion:
      return "the stored password cannot be read with the data source's key";
    case server::kKeyFileUnreadable:
      return "the data source's key file is missing, is no key or cannot be written";
    case server::kDatabasePasswordUnreadable:
      return "the file with the database's password is missing or cannot be read or written";
    case server::kWriteUncertain:
      return "the connection was lost during a write; see whether it was done";
    case server::kRandomFailed:
      return "the system gives no random numbers";
    default:
      return data::ToUtf8(error.Text());
  }
}

}  // namespace tool
