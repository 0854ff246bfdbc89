#include "server/engines/odbc/CallThread.h"

#include <condition_variable>
#include <mutex>
#include <utility>

namespace server {
namespace {

// The code that a call left to itself comes back to must not be unloaded.
void StayLoaded() {
#ifdef _WIN32
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<LPCWSTR>(&StayLoaded), &module);
#endif
}

}  // namespace

struct CallThread::State {
  std::mutex mutex;
  std::condition_variable changed;
  std::function<SQLRETURN()> call;  // the next one, until the thread takes it
  std::optional<SQLRETURN> result;  // of the last one, once it is back
  bool ends = false;
};

CallThread::CallThread() : state_(std::make_shared<State>()) {
  thread_ = std::thread([state = state_] { Work(state); });
}

CallThread::~CallThread() {
  if (IsStuck()) return;
  {
    const std::lock_guard lock(state_->mutex);
    state_->ends = true;
  }
  state_->changed.notify_all();
  thread_.join();
}

void CallThread::Work(const std::shared_ptr<State>& state) {
  std::unique_lock lock(state->mutex);
  for (;;) {
    state->changed.wait(lock, [&state] { return state->ends || state->call; });
    if (!state->call) return;
    std::function<SQLRETURN()> call = std::exchange(state->call, nullptr);
    lock.unlock();
    const SQLRETURN result = call();
    call = nullptr;  // and what it owns, which may be all that is left of a connection given up
    lock.lock();
    state->result = result;
    state->changed.notify_all();
  }
}

std::optional<SQLRETURN> CallThread::Run(std::function<SQLRETURN()> call,
                                         std::chrono::seconds limit) {
  std::unique_lock lock(state_->mutex);
  state_->result.reset();
  state_->call = std::move(call);
  state_->changed.notify_all();
  const bool back =
      state_->changed.wait_for(lock, limit, [this] { return state_->result.has_value(); });
  if (!back) {
    state_->ends = true;
    thread_.detach();
    StayLoaded();
  }
  return state_->result;
}

}  // namespace server
