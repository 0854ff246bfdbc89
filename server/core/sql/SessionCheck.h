#pragma once

#include "server/core/sql/Engine.h"

namespace server {

// What a database asks of the session that works on it.
class SessionCheck {
 public:
  virtual ~SessionCheck() = default;

  // Comes before each write and each reading transaction. Raises an error once the session has
  // ended.
  virtual void RequireOpen(Engine& engine) = 0;
  // Comes after what took something away, perhaps what the session itself stands on.
  virtual void AfterRemoval(Engine& engine) = 0;
};

}  // namespace server
