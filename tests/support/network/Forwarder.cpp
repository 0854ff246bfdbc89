#include "tests/support/network/Forwarder.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace test_support {
namespace {

constexpr const char* kProgram = UADMIN_FORWARDER;

struct Pipe {
  int ends[2] = {-1, -1};

  Pipe() {
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
};

}  // namespace

Forwarder::Forwarder(int target, std::chrono::microseconds roundTrip, int port) {
  const Pipe in;
  const Pipe out;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in.ends[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, out.ends[1], STDOUT_FILENO);
  std::string words[] = {kProgram, std::to_string(target), std::to_string(roundTrip.count()),
                         std::to_string(port)};
  char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(), nullptr};
  const int failed = posix_spawn(&process_, kProgram, &actions, nullptr, arguments, environ);
  posix_spawn_file_actions_destroy(&actions);
  close(in.ends[0]);
  close(out.ends[1]);
  input_ = in.ends[1];
  char text[16] = {};
  const ssize_t length = failed != 0 ? -1 : read(out.ends[0], text, sizeof text - 1);
  close(out.ends[0]);
  if (failed != 0) process_ = -1;
  port_ = length > 0 ? std::atoi(text) : 0;
  if (port_ == 0) {
    Cut();
    throw std::runtime_error("the forwarder does not start");
  }
}

Forwarder::~Forwarder() {
  Cut();
}

void Forwarder::Cut() {
  if (input_ >= 0) close(input_);
  input_ = -1;
  if (process_ <= 0) return;
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
  process_ = -1;
}

void Forwarder::Hang() const {
  kill(process_, SIGSTOP);
}

void Forwarder::GoOn() const {
  kill(process_, SIGCONT);
}

}  // namespace test_support
