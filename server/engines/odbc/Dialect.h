#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "server/core/sql/Schema.h"
#include "server/engines/odbc/RowBlock.h"

namespace server {

// What one kind of database server has of its own.
struct Dialect {
  // As the driver says it (SQL_DBMS_NAME).
  std::string_view name;
  SchemaWords schema;
  // The expression for the part of the server that tables without further name belong to.
  std::string_view ownSchema;
  // Whether a statement that fails makes the rest of its transaction worthless.
  bool errorEndsTransaction;
  // Whether creating a table is part of the transaction and undone with it.
  bool createsInTransaction;
  TextForm textForm;
  // The statement that sets up a new connection, none of whose statements may take longer.
  std::string (*settings)(std::chrono::seconds statementTime);
};

// The dialect for the database that a driver says it talks to. Raises a database error for one that
// the session server has none for.
const Dialect& DialectFor(std::string_view name);

}  // namespace server
