#pragma once

#include <filesystem>
#include <string>

namespace program {

// Has the programs that are started while it lives keep their journals in a folder, by the policy
// of the user, and not with the user who runs the tests. What the policy said before is restored.
class JournalFolder {
 public:
  explicit JournalFolder(const std::filesystem::path& folder);
  ~JournalFolder();
  JournalFolder(const JournalFolder&) = delete;
  JournalFolder& operator=(const JournalFolder&) = delete;

 private:
  std::wstring before_;  // empty where there was none
};

}  // namespace program
