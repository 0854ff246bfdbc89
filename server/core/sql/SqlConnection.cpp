#include "server/core/sql/SqlConnection.h"

#include "server/core/Errors.h"
#include "server/core/sql/SqlResultSet.h"

namespace server {

SqlConnection::SqlConnection(std::shared_ptr<Database> database) : database_(std::move(database)) {}

SqlConnection::~SqlConnection() {
  try {
    while (reads_ > 0) EndRead();
  } catch (const data::RunTimeError&) {
    // Nobody is left to be told; the engine has rolled back.
  }
}

std::unique_ptr<data::ResultSet> SqlConnection::OpenResultSet(std::wstring_view statement) {
  return std::make_unique<SqlResultSet>(database_, database_->Ask(statement));
}

std::int32_t SqlConnection::Execute(std::wstring_view statement) {
  return database_->Execute(statement);
}

void SqlConnection::BeginRead() {
  database_->BeginRead();
  ++reads_;
}

void SqlConnection::EndRead() {
  if (reads_ == 0) Fail(kReadNotBegun);
  --reads_;
  database_->EndRead();
}

}  // namespace server
