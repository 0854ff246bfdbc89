#pragma once

#include <memory>

#include "data/Connection.h"
#include "data/WriteObserver.h"

namespace data {

// A connection that does what the one given does and tells the observer, which outlives it and all
// its result sets, of every write. Between BeginRead and EndRead nothing is written, and nothing is
// watched: that is where thousands of result sets are read.
std::unique_ptr<Connection> Watched(std::unique_ptr<Connection> connection,
                                    WriteObserver& observer);

}  // namespace data
