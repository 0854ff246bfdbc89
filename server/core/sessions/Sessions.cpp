#include "server/core/sessions/Sessions.h"

#include <algorithm>
#include <chrono>

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/accounts/Encoding.h"
#include "server/core/sql/Query.h"

namespace server {
namespace {

constexpr std::size_t kTokenBytes = 32;
constexpr std::int64_t kRememberedSeconds = std::int64_t{90} * 24 * 3600;

std::int64_t Now() {
  return std::chrono::duration_cast<std::chrono::seconds>(
             std::chrono::system_clock::now().time_since_epoch())
      .count();
}

std::string HashOf(std::string_view token) {
  return ToHex(Sha256(token));
}

std::int32_t RandomNumber() {
  const std::string bytes = RandomBytes(4);
  std::uint32_t number = 0;
  for (const char byte : bytes) number = (number << 8) | static_cast<unsigned char>(byte);
  return static_cast<std::int32_t>(number & 0x7FFFFFFFU);
}

bool IsTaken(Engine& engine, std::int32_t number) {
  Query query(engine,
              "SELECT SESID FROM QRAUSR WHERE SESID = ? UNION "
              "SELECT SESID FROM QRAUSRX WHERE SESID = ?");
  return query.Bind(number, number).Next();
}

std::int32_t FreeNumber(Engine& engine) {
  std::int32_t number = 0;
  do number = RandomNumber();
  while (number == 0 || IsTaken(engine, number));
  return number;
}

[[noreturn]] void FailNotOpen(Engine& engine, std::int32_t sessionId) {
  Query closed(engine, "SELECT SESID FROM QRAUSRX WHERE SESID = ?");
  const bool known = closed.Bind(sessionId).Next();
  Fail(known ? kSessionClosed : kSessionUnknown, data::Decimal(sessionId));
}

}  // namespace

bool IsToken(std::string_view text) {
  return text.size() == 2 * kTokenBytes && std::all_of(text.begin(), text.end(), [](char c) {
           return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
         });
}

OpenedSession OpenUserSession(Engine& engine, std::int32_t userId) {
  OpenedSession session;
  session.token = ToHex(RandomBytes(kTokenBytes));
  WriteTransaction transaction(engine);
  session.sessionId = FreeNumber(engine);
  Run(engine, "INSERT INTO QRAUSR (USERID, SESID, TOKENHASH, OPENED) VALUES (?, ?, ?, ?)", userId,
      session.sessionId, HashOf(session.token), Now());
  transaction.Commit();
  return session;
}

std::int32_t CheckSession(Engine& engine, std::int32_t sessionId, std::string_view token) {
  const std::wstring number = data::Decimal(sessionId);
  Query session(engine,
                "SELECT QRAUSR.USERID, QRAUSR.TOKENHASH, QRUSERV.USERID FROM QRAUSR "
                "LEFT JOIN QRUSERV ON QRUSERV.USERID = QRAUSR.USERID WHERE QRAUSR.SESID = ?");
  if (!session.Bind(sessionId).Next()) FailNotOpen(engine, sessionId);
  if (!SameBytes(session.Text(1), HashOf(token))) Fail(kTokenWrong, number);
  if (session.Number(0) != session.Number(2)) Fail(kSessionUserGone, number);
  return static_cast<std::int32_t>(session.Number(0));
}

void CloseUserSession(Engine& engine, std::int32_t sessionId) {
  WriteTransaction transaction(engine);
  Run(engine, "DELETE FROM QRAUSR WHERE SESID = ?", sessionId);
  if (engine.RowsAffected() == 0) FailNotOpen(engine, sessionId);
  const std::int64_t now = Now();
  Run(engine, "DELETE FROM QRAUSRX WHERE CLOSED < ?", now - kRememberedSeconds);
  Run(engine, "INSERT INTO QRAUSRX (SESID, CLOSED) VALUES (?, ?)", sessionId, now);
  transaction.Commit();
}

int CloseSessionsOf(Engine& engine, std::wstring_view userName) {
  int closed = 0;
  for (const SessionEntry& session : ListSessions(engine)) {
    if (session.userName != userName) continue;
    CloseUserSession(engine, session.sessionId);
    ++closed;
  }
  return closed;
}

std::vector<SessionEntry> ListSessions(Engine& engine) {
  std::vector<SessionEntry> sessions;
  Query query(engine,
              "SELECT QRAUSR.SESID, QRAUSR.USERID, QRUSER.NAME, QRAUSR.OPENED FROM QRAUSR "
              "JOIN QRUSER ON QRUSER.USERID = QRAUSR.USERID ORDER BY QRAUSR.OPENED, QRAUSR.SESID");
  while (query.Next()) {
    sessions.push_back({static_cast<std::int32_t>(query.Number(0)),
                        static_cast<std::int32_t>(query.Number(1)), query.WideText(2),
                        query.Number(3)});
  }
  return sessions;
}

}  // namespace server
