#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>

#include "server/engines/odbc/OdbcHeaders.h"

namespace server {

// A thread for the calls of one connection. A server that hangs while its host lives is waited for
// without end by some drivers, and nothing that ODBC has ends such a call from outside; so the call
// is left to itself here, and whoever asked goes on.
class CallThread {
 public:
  CallThread();
  // Waits for the thread, unless a call was given up.
  ~CallThread();
  CallThread(const CallThread&) = delete;
  CallThread& operator=(const CallThread&) = delete;

  // Runs a call and waits for it; nothing when it is not back within the limit. It is given up
  // then, and no other may be run. It goes on as long as it pleases, so that it must own what it
  // uses.
  std::optional<SQLRETURN> Run(std::function<SQLRETURN()> call, std::chrono::seconds limit);
  // Whether a call was given up.
  bool IsStuck() const { return !thread_.joinable(); }

 private:
  struct State;

  static void Work(const std::shared_ptr<State>& state);

  std::shared_ptr<State> state_;
  std::thread thread_;
};

}  // namespace server
