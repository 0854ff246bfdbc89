#include "server/engines/odbc/WideText.h"

#include "data/Text.h"

namespace server {

OdbcText ToOdbc(std::string_view utf8) {
  const std::wstring wide = data::FromUtf8(utf8);
  return {wide.begin(), wide.end()};
}

std::string FromOdbc(const SQLWCHAR* units, std::size_t size) {
  return data::ToUtf8(std::wstring(units, units + size));
}

}  // namespace server
