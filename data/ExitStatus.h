#pragma once

namespace data {

// How a procedure that fills or writes ended; a failure has been reported by then.
enum ExitStatus : int { kDone = 6, kFailed = 7 };

}  // namespace data
