#pragma once

#include <objidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <map>
#include <optional>
#include <string>

namespace help_test {

// The compiled help file beside the program, read as the help viewer reads it: through the system's
// own storage for such files.
class HelpFile {
 public:
  HelpFile();
  ~HelpFile();
  HelpFile(const HelpFile&) = delete;
  HelpFile& operator=(const HelpFile&) = delete;

  static std::wstring Path();
  // The bytes of the file as it lies on the disk.
  static std::string Raw();

  bool IsOpen() const { return storage_ != nullptr; }
  // The bytes of a page or another file inside; nothing when it is not there.
  std::optional<std::string> Read(const std::string& name) const;
  // The page that each topic number opens.
  std::map<int, std::string> Topics() const;

 private:
  Microsoft::WRL::ComPtr<IStorage> storage_;
};

}  // namespace help_test
