#pragma once

#include <utility>

#include "com/ServerState.h"

namespace com {

// Owns a reference to something of the session server. It is given back unless the server has died,
// which cannot be relied on to count its references then.
template <typename Interface>
class RemotePointer {
 public:
  // Takes over a reference of the caller; null for one that a call is to put here.
  explicit RemotePointer(ServerState& server, Interface* object = nullptr)
      : server_(&server), object_(object) {}
  ~RemotePointer() {
    if (object_ != nullptr) server_->TryTouch([this]() noexcept { object_->Release(); });
  }
  RemotePointer(RemotePointer&& other) noexcept
      : server_(other.server_), object_(std::exchange(other.object_, nullptr)) {}
  RemotePointer& operator=(RemotePointer&&) = delete;

  Interface* Get() const { return object_; }
  // Gives the reference to the caller.
  Interface* Detach() { return std::exchange(object_, nullptr); }
  Interface** Out() { return &object_; }

 private:
  ServerState* server_;
  Interface* object_;
};

}  // namespace com
