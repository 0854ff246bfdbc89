#pragma once

#include <memory>
#include <string_view>

#include "com/CallObserver.h"
#include "com/ServerTexts.h"
#include "data/SessionServer.h"

namespace com {

// Creates the COM object of the ProgID and gives it out as a session server. It is called
// late-bound, so any object with the right member names will do. The calling thread must be in an
// apartment. An observer is told of every call; it outlives the server and all that comes from it.
//
// Raises 429 with the fitting text when the object is not registered, its file is missing or it is
// made for the other word size; 430 when it cannot be called late-bound; and with the number of the
// HRESULT, and the text that its maker gave, when it refuses to be created.
std::unique_ptr<data::SessionServer> CreateSessionServer(std::wstring_view progId,
                                                         const ServerTexts& texts,
                                                         CallObserver* observer = nullptr);

}  // namespace com
