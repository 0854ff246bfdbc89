#pragma once

#include <string>

#include "data/RunTimeError.h"

namespace tool {

// A failure of the session server in the tool's language, as UTF-8. A failure of the database keeps
// the database's own message.
std::string MessageOf(const data::RunTimeError& error);

}  // namespace tool
