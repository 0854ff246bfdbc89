#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "server/core/sessions/Sessions.h"
#include "server/core/sql/SessionCheck.h"

namespace server {

// Sees to it that a session ends that was closed, whose user was deleted, or whose user was an
// administrator when it was opened and is none any more. One of which nothing is known any more was
// not closed by anybody and goes on. So does one that took its own right away: whoever changes his
// own account loses it for a moment in the middle of a save.
class SessionWatch final : public SessionCheck {
 public:
  SessionWatch(std::int32_t sessionId, std::string token, bool administers);

  void RequireOpen(Engine& engine) override;
  void AfterRemoval(Engine& engine) override;

 private:
  // Nothing where nothing is known of the session.
  std::optional<SessionUser> Find(Engine& engine);

  std::int32_t sessionId_;
  std::string token_;
  bool administers_;
  bool tookItsRight_ = false;
  std::optional<SessionQuery> query_;  // prepared once
};

}  // namespace server
