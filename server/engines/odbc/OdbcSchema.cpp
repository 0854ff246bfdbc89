#include "server/engines/odbc/OdbcSchema.h"

namespace server {
namespace {

constexpr std::string_view kViews[] = {"QRUSGPV", "QRGROUPV", "QRUSERV"};
// Those that refer to others come first.
constexpr std::string_view kTables[] = {"QRDISPLAY", "QRCOUNTER", "QRAUSRX", "QRAUSR",  "QRGPRM",
                                        "QRUPRM",    "QRUSGP",    "QRPERM",  "QRGROUP", "QRUSER"};

}  // namespace

std::string OdbcSchemaQuestion(const Dialect& dialect) {
  std::string names;
  // Appended piece by piece: the 32-bit compiler warns, wrongly, of a text put in front of a
  // string.
  const auto add = [&names](std::string_view name) {
    names.append("'").append(name).append("', ");
  };
  for (const std::string_view view : kViews) add(view);
  for (const std::string_view table : kTables) add(table);
  return "SELECT UPPER(MAX(TABLE_NAME)) FROM information_schema.tables WHERE TABLE_SCHEMA = " +
         std::string(dialect.ownSchema) + " AND UPPER(TABLE_NAME) IN (" + names + "'')";
}

std::vector<std::string> OdbcSchemaRemoval() {
  std::vector<std::string> statements;
  for (const std::string_view view : kViews) {
    statements.push_back("DROP VIEW IF EXISTS " + std::string(view));
  }
  for (const std::string_view table : kTables) {
    statements.push_back("DROP TABLE IF EXISTS " + std::string(table));
  }
  return statements;
}

}  // namespace server
