// Passes on what two ends of a TCP connection send each other, as a network would that takes its
// time: every piece is held for half a round trip. For tests and benchmarks, which also cut such a
// network by ending this process, or let it hang by stopping it.
//
// Arguments: the port of the loopback to pass on to, the round trip in microseconds, the port to
// listen on, 0 for any. Prints the port that it listens on, and runs until its standard input is
// closed.

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

// A file descriptor with its owner.
class Socket {
 public:
  explicit Socket(int descriptor) : descriptor_(descriptor) {}
  ~Socket() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  int Get() const { return descriptor_; }

 private:
  int descriptor_;
};

// What one end has sent and the other not yet been given.
class Direction {
 public:
  Direction(int from, int to, Clock::duration delay) : from_(from), to_(to), delay_(delay) {}

  // Where more may come from; negative, which poll passes over, once it has closed.
  int From() const { return ended_ ? -1 : from_; }
  bool IsOver() const { return ended_ && pieces_.empty(); }
  // How long until something is due; negative when nothing is on its way.
  std::int64_t NanosecondsToNext(Clock::time_point now) const {
    if (pieces_.empty()) return -1;
    const auto rest = std::chrono::duration_cast<std::chrono::nanoseconds>(pieces_[0].due - now);
    return std::max<std::int64_t>(rest.count(), 0);
  }
  void Receive() {
    char bytes[65536];
    const ssize_t count = recv(from_, bytes, sizeof bytes, MSG_DONTWAIT);
    if (count > 0) {
      pieces_.push_back(
          {Clock::now() + delay_, std::string(bytes, static_cast<std::size_t>(count))});
    } else if (count == 0 || (errno != EAGAIN && errno != EWOULDBLOCK)) {
      ended_ = true;
    }
  }
  bool SendWhatIsDue() {
    while (!pieces_.empty() && pieces_[0].due <= Clock::now()) {
      const std::string& bytes = pieces_[0].bytes;
      std::size_t sent = 0;
      while (sent < bytes.size()) {
        const ssize_t count = send(to_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count <= 0) return false;
        sent += static_cast<std::size_t>(count);
      }
      pieces_.pop_front();
    }
    return true;
  }

 private:
  struct Piece {
    Clock::time_point due;
    std::string bytes;
  };

  int from_;
  int to_;
  Clock::duration delay_;
  std::deque<Piece> pieces_;
  bool ended_ = false;
};

struct Connection {
  Connection(int clientSocket, int serverSocket, Clock::duration delay)
      : client(clientSocket),
        server(serverSocket),
        there(clientSocket, serverSocket, delay),
        back(serverSocket, clientSocket, delay) {}

  Socket client;
  Socket server;
  Direction there;
  Direction back;
};

sockaddr_in Loopback(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

void SendAtOnce(int descriptor) {
  const int on = 1;
  setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

// -1 when nobody listens there.
int ConnectTo(std::uint16_t port) {
  const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_in address = Loopback(port);
  if (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
    SendAtOnce(descriptor);
    return descriptor;
  }
  close(descriptor);
  return -1;
}

class Forwarder {
 public:
  Forwarder(std::uint16_t target, Clock::duration delay)
      : target_(target), delay_(delay), listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {}

  bool Listen(std::uint16_t port) {
    const int on = 1;
    setsockopt(listener_.Get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address = Loopback(port);
    socklen_t size = sizeof address;
    auto* const any = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_.Get(), any, size) != 0 || listen(listener_.Get(), 64) != 0) return false;
    getsockname(listener_.Get(), any, &size);
    std::printf("%d\n", ntohs(address.sin_port));
    std::fflush(stdout);
    return true;
  }

  void Run() {
    while (Wait()) {
      connections_.remove_if([](const std::unique_ptr<Connection>& connection) {
        return !connection->there.SendWhatIsDue() || !connection->back.SendWhatIsDue() ||
               connection->there.IsOver() || connection->back.IsOver();
      });
    }
  }

 private:
  // Until something has come or is due. False when standard input is closed.
  bool Wait() {
    std::vector<pollfd> watched{{STDIN_FILENO, POLLIN, 0}, {listener_.Get(), POLLIN, 0}};
    std::int64_t rest = -1;
    const Clock::time_point now = Clock::now();
    for (const auto& connection : connections_) {
      for (const Direction* const way : {&connection->there, &connection->back}) {
        watched.push_back({way->From(), POLLIN, 0});
        const std::int64_t next = way->NanosecondsToNext(now);
        if (next >= 0 && (rest < 0 || next < rest)) rest = next;
      }
    }
    const timespec timeout{rest / 1'000'000'000, rest % 1'000'000'000};
    ppoll(watched.data(), watched.size(), rest < 0 ? nullptr : &timeout, nullptr);
    char byte = 0;
    if (watched[0].revents != 0 && read(STDIN_FILENO, &byte, 1) <= 0) return false;
    std::size_t i = 2;
    for (const auto& connection : connections_) {
      if (watched[i++].revents != 0) connection->there.Receive();
      if (watched[i++].revents != 0) connection->back.Receive();
    }
    if (watched[1].revents != 0) Accept();
    return true;
  }

  void Accept() {
    const int client = accept4(listener_.Get(), nullptr, nullptr, SOCK_CLOEXEC);
    if (client < 0) return;
    SendAtOnce(client);
    const int server = ConnectTo(target_);
    if (server < 0) {
      close(client);
      return;
    }
    connections_.push_back(std::make_unique<Connection>(client, server, delay_));
  }

  std::uint16_t target_;
  Clock::duration delay_;
  Socket listener_;
  std::list<std::unique_ptr<Connection>> connections_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  // Timers of the kernel may else be late by more than the time that is to be kept.
  prctl(PR_SET_TIMERSLACK, 1000UL);
  std::signal(SIGPIPE, SIG_IGN);
  const auto target = static_cast<std::uint16_t>(std::atoi(argv[1]));
  Forwarder forwarder(target, std::chrono::microseconds(std::atoi(argv[2])) / 2);
  if (!forwarder.Listen(static_cast<std::uint16_t>(std::atoi(argv[3])))) return 1;
  forwarder.Run();
  return 0;
}
