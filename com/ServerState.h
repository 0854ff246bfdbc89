#pragma once

#include <windows.h>

#include "com/CallGuard.h"
#include "com/CallObserver.h"
#include "com/ServerTexts.h"

namespace com {

// What all objects of one session server share: the texts for its failures, who is told of its
// calls, and whether it has died. Whatever runs code of the server or reads its memory is done
// through here; once that has ended in a structured exception, nothing of it is touched again.
class ServerState {
 public:
  // The observer may be null; it outlives the state.
  explicit ServerState(ServerTexts texts, CallObserver* observer = nullptr);
  ServerState(const ServerState&) = delete;
  ServerState& operator=(const ServerState&) = delete;

  const ServerTexts& Texts() const { return texts_; }
  bool IsDead() const { return fault_ != 0; }
  // Raises the number of the structured exception that the server died of.
  void CheckAlive() const {
    if (IsDead()) RaiseLost();
  }

  // The observer; null where nobody is told.
  CallObserver* Observer() const { return observer_; }

  // Does something with the server. The callable must not throw. Raises the number of the
  // structured exception when the server died of it, or was dead already; it is then not called.
  template <typename Callable>
  void Touch(const Callable& callable) {
    if (!TryTouch(callable)) RaiseLost();
  }

  // The same for where nothing can be raised: false when the server is dead now.
  template <typename Callable>
  bool TryTouch(const Callable& callable) noexcept {
    if (IsDead()) return false;
    const ObservedCall observed(observer_);
    const DWORD fault = FaultOf(callable);
    // A call inside this one may have found the server dead, even if this one came back.
    if (fault != 0) fault_ = fault;
    return !IsDead();
  }

 private:
  class ObservedCall {
   public:
    explicit ObservedCall(CallObserver* observer) : observer_(observer) {
      if (observer_ != nullptr) observer_->CallBegins();
    }
    ~ObservedCall() {
      if (observer_ != nullptr) observer_->CallEnds();
    }
    ObservedCall(const ObservedCall&) = delete;
    ObservedCall& operator=(const ObservedCall&) = delete;

   private:
    CallObserver* observer_;
  };

  [[noreturn]] void RaiseLost() const;

  ServerTexts texts_;
  CallObserver* observer_;
  DWORD fault_ = 0;  // the code of the exception that the server died of
};

}  // namespace com
