#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace driver {

struct HandleCloser {
  void operator()(HANDLE handle) const {
    if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
  }
};

// An owned kernel handle.
using UniqueHandle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

}  // namespace driver
