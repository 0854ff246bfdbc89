#pragma once

#include <cstdint>
#include <string_view>

#include "server/core/sql/Engine.h"

namespace server {

// Draws the next identifier of a counter, "QRUSRN" for users or "QRGPRN" for groups. Each
// identifier is given once, however many ask at a time: the counter is raised before it is read,
// and raising it shuts out everybody else until the transaction around it ends. Raises
// kCounterUnknown or kCounterExhausted.
std::int32_t DrawIdentifier(Engine& engine, std::string_view counterName);

// Sees to it that a counter gives nothing up to last any more.
void RaiseCounter(Engine& engine, std::string_view counterName, std::int32_t last);

}  // namespace server
