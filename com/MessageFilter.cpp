#include "com/MessageFilter.h"

namespace com {
namespace {

constexpr DWORD kInterval = 250;
constexpr DWORD kWhile = 10000;
constexpr DWORD kGiveUp = static_cast<DWORD>(-1);

}  // namespace

DWORD STDMETHODCALLTYPE MessageFilter::HandleInComingCall(DWORD, HTASK, DWORD, INTERFACEINFO*) {
  return SERVERCALL_ISHANDLED;
}

// Servers say "rejected" and "later" of one and the same: a dialog of theirs is open, say. The time
// that the user takes for his answer is not counted.
DWORD STDMETHODCALLTYPE MessageFilter::RetryRejectedCall(HTASK, DWORD elapsed, DWORD) {
  const bool isNewCall = elapsed < before_;
  before_ = elapsed;
  if (isNewCall) start_ = 0;
  if (std::exchange(asked_, false) && !isNewCall) start_ = elapsed;
  if (elapsed - start_ < kWhile) return kInterval;
  if (!goOn_ || !goOn_()) {
    before_ = kGiveUp;
    return kGiveUp;
  }
  asked_ = true;
  return kInterval;
}

DWORD STDMETHODCALLTYPE MessageFilter::MessagePending(HTASK, DWORD, DWORD) {
  return PENDINGMSG_WAITDEFPROCESS;
}

}  // namespace com
