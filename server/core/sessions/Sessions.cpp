#include "server/core/sessions/Sessions.h"

#include <algorithm>
#include <chrono>
#include <optional>

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/accounts/Encoding.h"
#include "server/core/accounts/Rights.h"
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

namespace {

// The column that says whether one of these permissions is the right to administer users.
std::string AdministersBy(std::string_view permissions) {
  return " (SELECT MAX(QRPERM.RIGHTS & " + std::to_string(kAdministerRight) + ") FROM QRPERM, " +
         std::string(permissions) + ".USERID = QRAUSR.USERID)";
}

// It comes to a user by his own permissions and by those of his living groups.
std::string SessionQuestion(bool asksForRight) {
  std::string columns = "QRAUSR.USERID, QRAUSR.TOKENHASH, QRUSERV.USERID";
  if (asksForRight) {
    columns += "," + AdministersBy("QRUPRM WHERE QRPERM.PERMID = QRUPRM.PERMID AND QRUPRM") + "," +
               AdministersBy(
                   "QRGPRM, QRUSGPV WHERE QRPERM.PERMID = QRGPRM.PERMID"
                   " AND QRGPRM.GROUPID = QRUSGPV.GROUPID AND QRUSGPV");
  }
  return "SELECT " + columns +
         " FROM QRAUSR LEFT JOIN QRUSERV ON QRUSERV.USERID = QRAUSR.USERID WHERE QRAUSR.SESID = ?";
}

}  // namespace

SessionQuery::SessionQuery(Engine& engine, bool asksForRight)
    : query_(engine, SessionQuestion(asksForRight)), asksForRight_(asksForRight) {}

SessionUser SessionQuery::Check(Engine& engine, std::int32_t sessionId, std::string_view token) {
  struct Row {
    std::int64_t user;
    std::string hash;
    std::int64_t living;
    bool administers;
  };
  std::optional<Row> row;
  // Read to its end, so that no lock stays.
  for (query_.Bind(sessionId); query_.Next();) {
    row = Row{query_.Number(0), query_.Text(1), query_.Number(2),
              asksForRight_ && (query_.Number(3) != 0 || query_.Number(4) != 0)};
  }
  if (!row) FailNotOpen(engine, sessionId);
  const std::wstring number = data::Decimal(sessionId);
  if (!SameBytes(row->hash, HashOf(token))) Fail(kTokenWrong, number);
  if (row->user != row->living) Fail(kSessionUserGone, number);
  return {static_cast<std::int32_t>(row->user), row->administers};
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
