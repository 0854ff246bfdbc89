#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

#include "com/RemotePointer.h"
#include "com/ServerState.h"

namespace com {

// The error object that the session server left for this thread, if any. It is taken away from
// there.
class ErrorObject {
 public:
  explicit ErrorObject(ServerState& server);

  bool IsThere() const { return info_.Get() != nullptr; }
  // The description in it, which may be empty. There must be an object.
  std::wstring Text() const;

 private:
  ServerState& server_;
  RemotePointer<IErrorInfo> info_;
};

}  // namespace com
