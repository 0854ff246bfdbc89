#pragma once

#include <sys/types.h>

#include <chrono>

namespace test_support {

// A network of its own to a port of the loopback: a process that passes on what both ends send and
// takes its time for it. It ends with this object.
class Forwarder {
 public:
  // port is the one to listen on, 0 for any that is free.
  explicit Forwarder(int target, std::chrono::microseconds roundTrip = {}, int port = 0);
  ~Forwarder();
  Forwarder(const Forwarder&) = delete;
  Forwarder& operator=(const Forwarder&) = delete;

  int Port() const { return port_; }
  // Cuts all connections, and takes no new ones.
  void Cut();
  // Lets them hang: nothing passes, nothing is closed.
  void Hang() const;
  void GoOn() const;

 private:
  pid_t process_ = -1;
  int input_ = -1;  // the process ends when this is closed
  int port_ = 0;
};

}  // namespace test_support
