#pragma once

#include <memory>

#include "data/SessionServer.h"

// The session server that the library hands out, its about box a message box over the active
// window.
std::unique_ptr<data::SessionServer> MakeServer();
