#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace automation {

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};

// An owned kernel handle; empty where a call gave none. INVALID_HANDLE_VALUE must not be put in:
// see FileHandle.
using Handle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

// Takes over what CreateFile gave, which has a value of its own for a failure.
inline Handle FileHandle(HANDLE file) {
  return Handle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

}  // namespace automation
