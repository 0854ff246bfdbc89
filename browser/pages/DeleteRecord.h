#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/mGlobal.h"

namespace browser {

// Runs one statement that deletes, or marks as deleted; the number of rows that it met, -1 when
// that is not known, nothing when it failed, which has been reported.
std::optional<std::int32_t> DeleteRecord(const app::mGlobal& global, const std::wstring& sql);

// For a statement that met no row: somebody else has done its work, or undone it.
void TellChangedMeanwhile(const app::mGlobal& global);

}  // namespace browser
