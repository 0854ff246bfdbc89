#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "server/engines/odbc/OdbcHeaders.h"

namespace server {

// The text of ODBC's wide calls: UTF-16, in units of two bytes on every platform.
using OdbcText = std::vector<SQLWCHAR>;

OdbcText ToOdbc(std::string_view utf8);
std::string FromOdbc(const SQLWCHAR* units, std::size_t size);

}  // namespace server
