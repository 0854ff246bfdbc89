#pragma once

#include <windows.h>

#include <objidl.h>

#include <functional>

#include "automation/ComObject.h"

namespace com {

// What happens to a call that a server in another process does not take because it is busy: it is
// made again and again for a while, then the user is asked whether to go on so.
class MessageFilter final : public automation::ComObject<IMessageFilter> {
 public:
  // Asked whether to go on trying; without it every call is given up after the while.
  explicit MessageFilter(std::function<bool()> goOn) : goOn_(std::move(goOn)) {}

  // A call that comes in is always taken: events of a server, above all.
  DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD kind, HTASK caller, DWORD elapsed,
                                             INTERFACEINFO* member) override;
  // elapsed: milliseconds since the call was first made. The answer is the number of milliseconds
  // to wait, 100 or more, or -1 to give the call up.
  DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK server, DWORD elapsed, DWORD reason) override;
  // While a call is under way the system paints, and input waits.
  DWORD STDMETHODCALLTYPE MessagePending(HTASK server, DWORD elapsed, DWORD kind) override;

 private:
  std::function<bool()> goOn_;
  DWORD before_ = 0;  // elapsed, when this call was last looked at
  DWORD start_ = 0;   // of the present while
  bool asked_ = false;
};

}  // namespace com
