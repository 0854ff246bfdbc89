#pragma once

#include <windows.h>

namespace com {

// An in-process server that goes wrong takes its caller with it unless the caller stands in the way
// of the structured exception. The guard does so: it asks the frames below it first, so that a
// server which handles its own exceptions is left alone, and takes what nobody else wants.
//
// So a C++ or CLR server catches its own exceptions whether it throws them in a call or calls
// itself by way of this program. One that its code lets escape ends here, at the innermost guard:
// further out lie frames of this program, whose destructors such an exception would pass over.
//
// Whether the guard takes an exception that nobody below it wants: a failure of the system's or of
// the server's. Warnings, what debuggers say to each other and a fault of this program's own code,
// which a server may call back, are left to those who handle them, and a stack overflow to the
// system.
bool IsServerFault(const EXCEPTION_RECORD& record);

// Calls the function with the context. The answer is 0 when it came back, else the code of the
// exception that ended it. The function must let no C++ exception out.
DWORD CallGuarded(void (*function)(void* context), void* context);

// The same for a callable, which must not throw either.
template <typename Callable>
DWORD FaultOf(const Callable& callable) {
  return CallGuarded([](void* context) { (*static_cast<const Callable*>(context))(); },
                     const_cast<Callable*>(&callable));
}

}  // namespace com
