#pragma once

#include "server/core/sql/Engine.h"

namespace server {

// Writes the display texts that all samples share into an empty QRDISPLAY. Throws DatabaseError.
void InsertDisplayTexts(Engine& engine);

}  // namespace server
