#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "com/RemoteObject.h"

namespace com {

// Calls the session server's ReadCommandLine, the one member with arguments that it writes to.
void ReadCommandLine(RemoteObject& server, std::wstring_view commandLine, std::wstring& sessionText,
                     std::int32_t& sessionId);

}  // namespace com
