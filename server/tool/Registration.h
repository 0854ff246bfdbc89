#pragma once

#include "server/tool/Arguments.h"
#include "server/tool/Tool.h"

namespace tool {

// Register the session server that lies beside the tool, or take its registration away: for the
// machine, or with --user for the current user.
void Register(const Arguments& arguments, const Surroundings& surroundings);
void Unregister(const Arguments& arguments, const Surroundings& surroundings);

}  // namespace tool
