#include "server/core/sessions/SessionWatch.h"

#include <utility>

#include "data/RunTimeError.h"
#include "data/Text.h"
#include "server/core/Errors.h"

namespace server {

SessionWatch::SessionWatch(std::int32_t sessionId, std::string token, bool administers)
    : sessionId_(sessionId), token_(std::move(token)), administers_(administers) {}

std::optional<SessionUser> SessionWatch::Find(Engine& engine) {
  if (!query_) query_.emplace(engine, administers_);
  try {
    return query_->Check(engine, sessionId_, token_);
  } catch (const data::RunTimeError& error) {
    if (error.Number() != kSessionUnknown) throw;
    return std::nullopt;
  }
}

void SessionWatch::RequireOpen(Engine& engine) {
  const std::optional<SessionUser> user = Find(engine);
  if (!user || !administers_) return;
  if (user->administers) {
    tookItsRight_ = false;
  } else if (!tookItsRight_) {
    Fail(kSessionRightLost, data::Decimal(sessionId_));
  }
}

void SessionWatch::AfterRemoval(Engine& engine) {
  if (!administers_ || tookItsRight_) return;
  try {
    const std::optional<SessionUser> user = Find(engine);
    tookItsRight_ = user && !user->administers;
  } catch (const data::RunTimeError&) {
    // What was removed is removed; whatever is wrong shows with the next write.
  }
}

}  // namespace server
