#pragma once

#include <windows.h>

#include <string>

#include "automation/Library.h"

namespace com_test {

// The full path of a file that the build puts beside the program.
std::wstring BuiltFile(const std::wstring& name);

// A library of the build, loaded for as long as a test needs it.
class BuiltLibrary {
 public:
  explicit BuiltLibrary(const std::wstring& name);

  bool IsLoaded() const { return module_ != nullptr; }
  // Null when the library has no such function.
  template <typename Function>
  Function Find(const char* name) const {
    return automation::FindFunction<Function>(module_.get(), name);
  }

 private:
  automation::Library module_;
};

}  // namespace com_test
