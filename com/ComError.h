#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace com {

// Raises the run-time error that a failed call stands for. details is what the callee wrote about a
// DISP_E_EXCEPTION; its texts are freed. lostText goes with the results that say that the object is
// gone.
[[noreturn]] void RaiseFailure(HRESULT result, EXCEPINFO& details, IDispatch* object,
                               const std::wstring& lostText);

// The same for a call that knows no EXCEPINFO.
[[noreturn]] void RaiseFailure(HRESULT result, IDispatch* object, const std::wstring& lostText);

// Raises 6 for a value that is too large and 13 for any other conversion that failed.
void CheckConversion(HRESULT result);

}  // namespace com
