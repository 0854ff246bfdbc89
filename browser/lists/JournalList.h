#pragma once

#include "app/mGlobal.h"
#include "browser/lists/ListSource.h"

namespace browser {

// The latest entries of the journal, the latest first. What could not be read, or is no entry, is
// told below them.
ListSource JournalList(const app::mGlobal& global);

}  // namespace browser
