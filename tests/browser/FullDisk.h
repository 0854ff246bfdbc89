#pragma once

#ifndef _WIN32

#include <sys/resource.h>

#include <csignal>
#include <cstdint>

namespace browser {

// While it lives no file of the process grows beyond so many bytes, as if the disk were full then.
class FullDisk {
 public:
  explicit FullDisk(std::uintmax_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{static_cast<rlim_t>(bytes), before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*signal_)(int);
  rlimit before_ = {};
};

}  // namespace browser

#endif
