#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace program {

// The entries of the session server in this machine's registry. They are put back as they were when
// the object goes.
class Registration {
 public:
  Registration();
  ~Registration();
  Registration(const Registration&) = delete;
  Registration& operator=(const Registration&) = delete;

  // Enters the reference server of the folder under test, or takes whatever is entered away.
  void Enter();
  void Remove();
  // Lets the registered class point to another file.
  void PointTo(const std::filesystem::path& file);

 private:
  std::wstring Backup(const std::wstring& key) const;
};

}  // namespace program
