#pragma once

#include <cstdint>
#include <string_view>

#include "data/SessionServer.h"

namespace data {

// Reads a single identifier as every lookup of the program does: column 0 of each row, trimmed and
// converted; the last row wins, and no row leaves the initial value.
std::int32_t ReadIdentifier(Connection& connection, std::wstring_view statement,
                            std::int32_t initial = 0);

// How many rows a statement gives.
std::int32_t CountRows(Connection& connection, std::wstring_view statement);

}  // namespace data
