#pragma once

#include <windows.h>

#include <oaidl.h>

namespace server::com {

// Called inside a catch block: the result that the current exception stands for. A failure of the
// server's work is written to exception, where the caller gave one, and to the thread's error
// object; a call that is wrong in itself names its argument in wrongArgument.
HRESULT DescribeCurrentException(const GUID& source, unsigned argumentCount, EXCEPINFO* exception,
                                 UINT* wrongArgument) noexcept;

}  // namespace server::com
