#pragma once

#include <exception>
#include <type_traits>
#include <utility>

#include "app/Reported.h"

namespace app {

// The first error of a piece of work during which nothing may be shown, because a reading
// transaction is open: other administrators would wait until somebody has pressed OK.
class KeptError {
 public:
  // Runs a procedure as Reported does, but keeps its error. One that comes after another is left
  // out: it is as a rule what the first has led to.
  template <typename Work>
  Outcome Keep(const wchar_t* procedure, Work&& work) {
    try {
      if constexpr (std::is_void_v<decltype(work())>) {
        std::forward<Work>(work)();
        return Outcome::kDone;
      } else {
        return std::forward<Work>(work)();
      }
    } catch (...) {
      if (!error_) {
        error_ = std::current_exception();
        procedure_ = procedure;
      }
      return Outcome::kFailed;
    }
  }

  // Shows the standard error report of the error, if there is one, under the name of the procedure
  // that failed.
  void Report(const mGlobal& global) const {
    if (!error_) return;
    try {
      std::rethrow_exception(error_);
    } catch (...) {
      ReportError(global, procedure_);
    }
  }

 private:
  std::exception_ptr error_;
  const wchar_t* procedure_ = L"";
};

// Runs a procedure that opens and ends a reading transaction. It is given a KeptError for the
// procedures that it runs itself, whose errors are reported under their own names; any other error
// is reported under this procedure's. The report is shown when the procedure is over.
template <typename Work>
Outcome ReportedLater(const mGlobal& global, const wchar_t* procedure, Work&& work) {
  KeptError error;
  const Outcome outcome = error.Keep(procedure, [&] { return std::forward<Work>(work)(error); });
  error.Report(global);
  return outcome;
}

}  // namespace app
