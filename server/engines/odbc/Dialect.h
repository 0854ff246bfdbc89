#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "server/core/sql/Schema.h"
#include "server/engines/odbc/RowBlock.h"

namespace server {

// What a database server says and is told where it is one node of a cluster.
struct ClusterWords {
  // The question that a node answers with ON; empty for a kind that knows no clusters.
  std::string_view question;
  // A statement that a node refuses which is cut off from most others, and a piece of its refusal:
  // nothing was done then.
  std::string_view probe;
  std::string_view refusal;
  // Has a connection see whatever was written on any node before, and a piece of what is said to a
  // statement that only reads when the node cannot come by that.
  std::string_view settings;
  std::string_view lag;
};

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
  ClusterWords cluster;
};

// The dialect for the database that a driver says it talks to. Raises a database error for one that
// the session server has none for.
const Dialect& DialectFor(std::string_view name);

}  // namespace server
