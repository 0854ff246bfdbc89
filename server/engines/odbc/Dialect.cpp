#include "server/engines/odbc/Dialect.h"

#include "data/Text.h"
#include "server/core/Errors.h"

namespace server {
namespace {

std::string PostgresqlSettings(std::chrono::seconds statementTime) {
  return "SET statement_timeout = '" + std::to_string(statementTime.count()) + "s'";
}

// A value that does not fit is an error, not cut; a lock is not waited for any longer than a
// statement may take.
std::string SettingsWithLimit(std::string_view limit, std::chrono::seconds statementTime) {
  return "SET SESSION sql_mode = 'STRICT_ALL_TABLES,NO_ENGINE_SUBSTITUTION', "
         "default_storage_engine = InnoDB, innodb_lock_wait_timeout = " +
         std::to_string(statementTime.count()) + ", " + std::string(limit);
}

// Level 4 lets small tables be joined by their hash, which spares a look-up for each of the million
// rows that the permissions of all users are.
std::string MariadbSettings(std::chrono::seconds statementTime) {
  return SettingsWithLimit(
      "join_cache_level = 4, max_statement_time = " + std::to_string(statementTime.count()),
      statementTime);
}

std::string MysqlSettings(std::chrono::seconds statementTime) {
  return SettingsWithLimit("max_execution_time = " + std::to_string(1000 * statementTime.count()),
                           statementTime);
}

constexpr ClusterWords kGalera = {
    "SELECT VARIABLE_VALUE FROM information_schema.GLOBAL_VARIABLES WHERE VARIABLE_NAME = "
    "'WSREP_ON'",
    "SELECT 1 FROM (SELECT 1) AS PROBE",
    "WSREP has not yet prepared node",
    "SET SESSION wsrep_sync_wait = 3",
    "Lock wait timeout exceeded",
};

constexpr Dialect kDialects[] = {
    // A name is looked up by its hash: the usual index refuses texts of some thousand letters.
    {"PostgreSQL",
     {R"(TEXT COLLATE "C")", R"(VARCHAR(255) COLLATE "C")", "USING HASH (NAME)", ""},
     "current_schema()",
     true,
     true,
     TextForm::kWide,
     PostgresqlSettings,
     {}},
    {"MariaDB",
     {"TEXT CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin",
      "VARCHAR(255) CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin", "(NAME(191))", ""},
     "DATABASE()",
     false,
     false,
     TextForm::kUtf8,
     MariadbSettings,
     kGalera},
    {"MySQL",
     {"TEXT CHARACTER SET utf8mb4 COLLATE utf8mb4_0900_bin",
      "VARCHAR(255) CHARACTER SET utf8mb4 COLLATE utf8mb4_0900_bin", "(NAME(191))", ""},
     "DATABASE()",
     false,
     false,
     TextForm::kUtf8,
     MysqlSettings,
     {}},
};

}  // namespace

const Dialect& DialectFor(std::string_view name) {
  for (const Dialect& dialect : kDialects) {
    if (name == dialect.name) return dialect;
  }
  FailDatabase(L"the session server is not made for the databases of " + data::FromUtf8(name));
}

}  // namespace server
