#include "server/core/accounts/Counters.h"

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/sql/Query.h"

namespace server {

std::int32_t DrawIdentifier(Engine& engine, std::string_view counterName) {
  const std::wstring name = data::FromUtf8(counterName);
  // Both are prepared before the first is run. A node of a cluster takes a change back whose
  // transaction loses to another node's, and says so in answer to the next statement that is run;
  // where the next is only prepared, nobody is told, and what is read then is the other's
  // identifier.
  Query raise(engine, "UPDATE QRCOUNTER SET LASTVALUE = LASTVALUE + 1 WHERE NAME = ?");
  Query read(engine, "SELECT LASTVALUE FROM QRCOUNTER WHERE NAME = ?");
  raise.Run(counterName);
  if (!read.Bind(counterName).Next()) Fail(kCounterUnknown, name);
  if (read.Number(0) > INT32_MAX) Fail(kCounterExhausted, name);
  return static_cast<std::int32_t>(read.Number(0));
}

void RaiseCounter(Engine& engine, std::string_view counterName, std::int32_t last) {
  Run(engine, "UPDATE QRCOUNTER SET LASTVALUE = ? WHERE NAME = ? AND LASTVALUE < ?", last,
      counterName, last);
}

}  // namespace server
