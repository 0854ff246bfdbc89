#pragma once

#include <windows.h>

namespace com {

// The number under which a failed call is reported: a standard one where the result stands for it,
// else the result itself.
long FailureNumber(HRESULT result);

// Whether a result says that the object, or the process that it lives in, is no longer there.
bool SaysThatTheObjectIsGone(HRESULT result);

// Whether a result says that the server, in another process, is busy and has not taken the call.
bool SaysThatTheServerIsBusy(HRESULT result);

// Whether a result says that the object has no such member.
bool SaysThatTheMemberIsUnknown(HRESULT result);

}  // namespace com
