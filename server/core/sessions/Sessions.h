#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "server/core/sql/Query.h"

// The sessions of a database: QRAUSR holds the open ones, QRAUSRX remembers closed ones for a while
// so that a late caller is told what happened. Of a token only the SHA-256 hash is stored.
namespace server {

struct OpenedSession {
  std::int32_t sessionId = 0;
  std::string token;  // hexadecimal; known to nobody but the caller from here on
};

struct SessionEntry {
  std::int32_t sessionId = 0;
  std::int32_t userId = 0;
  std::wstring userName;
  std::int64_t opened = 0;  // seconds since 1970
};

// Opens a session for a user, under a number drawn at random from the positive 32-bit ones.
OpenedSession OpenUserSession(Engine& engine, std::int32_t userId);

// The user of an open session.
struct SessionUser {
  std::int32_t userId = 0;
  // Whether he has the right to administer users; false where that was not asked for.
  bool administers = false;
};

// The question for the user of a session, prepared for being asked more than once.
class SessionQuery {
 public:
  SessionQuery(Engine& engine, bool asksForRight);

  // Raises kSessionUnknown, kSessionClosed, kTokenWrong or kSessionUserGone.
  SessionUser Check(Engine& engine, std::int32_t sessionId, std::string_view token);

 private:
  Query query_;
  bool asksForRight_;
};

// Raises kSessionUnknown or kSessionClosed.
void CloseUserSession(Engine& engine, std::int32_t sessionId);

// Closes all open sessions of the user of that name, which may be the name of a deleted one, and
// returns how many there were.
int CloseSessionsOf(Engine& engine, std::wstring_view userName);

// The open sessions, oldest first.
std::vector<SessionEntry> ListSessions(Engine& engine);

// Whether a text has the form of a token.
bool IsToken(std::string_view text);

}  // namespace server
