#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace automation {

struct LibraryUnloader {
  void operator()(HMODULE library) const { FreeLibrary(library); }
};

// A loaded library; empty where it could not be loaded.
using Library = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryUnloader>;

// A function of a library as what it is; null when there is none of that name.
template <typename Function>
Function FindFunction(HMODULE library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(library, name)));
}

}  // namespace automation
