#pragma once

#include <string_view>

#include "app/mGlobal.h"

namespace app {

// The standard error report. Called inside a catch block, it shows the current exception under the
// name of the procedure that failed: the name and the error's number on the first line, on the
// second the text that came with the error, else the standard text of the number, else the generic
// one. Memory that ran out is error 7. Any other foreign exception is a broken invariant and ends
// the program.
void ReportError(const mGlobal& global, std::wstring_view procedure) noexcept;

}  // namespace app
