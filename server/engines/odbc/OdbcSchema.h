#pragma once

#include <string>
#include <vector>

#include "server/engines/odbc/Dialect.h"

namespace server {

// The question for the name of a table or view of the schema that a database holds; it is answered
// with nothing where there is none.
std::string OdbcSchemaQuestion(const Dialect& dialect);

// The statements that take away what of the schema is there, in order.
std::vector<std::string> OdbcSchemaRemoval();

}  // namespace server
