#pragma once

#include <type_traits>
#include <utility>

#include "app/ErrorReport.h"
#include "app/mGlobal.h"

namespace app {

// How a procedure that fills, writes or rebuilds ended. The numbers are the product's, those of a
// message box's Yes and No. A failure has been reported to the user by then.
enum class [[nodiscard]] Outcome{kDone = 6, kFailed = 7};

// Runs a procedure that answers a value. An error in it is shown as the standard error report under
// the procedure's name; the answer then is the fallback.
template <typename Result, typename Work>
Result ReportedOr(const mGlobal& global, const wchar_t* procedure, Result fallback, Work&& work) {
  try {
    return std::forward<Work>(work)();
  } catch (...) {
    ReportError(global, procedure);
    return fallback;
  }
}

// Runs a procedure. An error in it is shown as the standard error report under the procedure's name
// and answered with kFailed. A procedure that can fail after a report of its own answers an
// Outcome; one that answers nothing is done when it returns.
template <typename Work>
Outcome Reported(const mGlobal& global, const wchar_t* procedure, Work&& work) {
  return ReportedOr(global, procedure, Outcome::kFailed, [&]() -> Outcome {
    if constexpr (std::is_void_v<decltype(work())>) {
      work();
      return Outcome::kDone;
    } else {
      return work();
    }
  });
}

}  // namespace app
