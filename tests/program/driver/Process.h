#pragma once

#include <windows.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "tests/program/driver/Handle.h"
#include "tests/program/driver/Wait.h"

namespace driver {

// What is to be started.
struct Command {
  std::filesystem::path program;
  std::wstring arguments;                            // as they stand on the command line
  std::map<std::wstring, std::wstring> environment;  // added to the test's own, or replacing it
  std::filesystem::path folder;                      // the current folder; empty for the test's own
  std::filesystem::path output;                      // takes what it writes; empty for nowhere
};

// A process that this one started. It does not outlive the object.
class Process {
 public:
  explicit Process(const Command& command);
  ~Process();
  Process(Process&&) = default;
  Process& operator=(Process&&) = delete;

  DWORD Id() const { return id_; }
  HANDLE Handle() const { return process_.get(); }
  bool IsRunning() const;
  // The exit code; nothing when the process is still running after that time.
  std::optional<DWORD> WaitForExit(std::chrono::milliseconds patience = kPatience) const;

 private:
  UniqueHandle process_;
  DWORD id_ = 0;
};

}  // namespace driver
