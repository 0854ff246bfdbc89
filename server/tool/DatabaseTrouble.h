#pragma once

#include <string>

#include "data/RunTimeError.h"

namespace tool {

// What is wrong with a database, in plain words in front of the database's own message.
std::string TroubleInWords(const data::RunTimeError& error);

}  // namespace tool
