#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

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
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(Address(name)));
  }

 private:
  struct Unloader {
    void operator()(HMODULE module) const { FreeLibrary(module); }
  };

  FARPROC Address(const char* name) const { return GetProcAddress(module_.get(), name); }

  std::unique_ptr<std::remove_pointer_t<HMODULE>, Unloader> module_;
};

}  // namespace com_test
