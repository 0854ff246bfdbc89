#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/SessionServer.h"

namespace browser {

// A row of users (identifier, name, full name) or of groups (identifier, name, description).
struct AccountRow {
  std::int32_t id = 0;
  std::wstring name;
  std::wstring addition;
};

// Reads a statement's rows whole, so that its result set is closed before the next statement runs.
// A second row of the same identifier is left out.
std::vector<AccountRow> ReadAccountRows(data::Connection& connection, std::wstring_view statement);

// Adds one to a 16-bit count of accounts. Raises 6 when it is full.
void CountOneMore(std::int16_t& count);

}  // namespace browser
