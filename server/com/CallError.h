#pragma once

#include <windows.h>

namespace server::com {

// A call that is wrong in itself: thrown while its arguments are read, answered with a result that
// names no work of the server. argument counts from 0 in the order of the declaration.
struct CallError {
  HRESULT result;
  unsigned argument;
};

}  // namespace server::com
