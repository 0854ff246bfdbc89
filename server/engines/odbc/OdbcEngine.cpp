#include "server/engines/odbc/OdbcEngine.h"

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/engines/odbc/OdbcSchema.h"
#include "server/engines/odbc/OdbcStatement.h"

namespace server {

OdbcEngine::OdbcEngine(const OdbcTarget& target, std::chrono::seconds statementTime)
    : session_{OdbcConnection(target)} {
  session_.dialect = &DialectFor(session_.connection.Info(SQL_DBMS_NAME));
  session_.connection.Run(session_.dialect->settings(statementTime));
}

void OdbcEngine::CreateSchema() {
  const OdbcConnection& connection = session_.connection;
  const std::string there = connection.Ask(OdbcSchemaQuestion(*session_.dialect));
  if (!there.empty()) {
    FailDatabase(L"the database is not empty: it holds " + data::FromUtf8(there));
  }
  try {
    for (const std::string& statement : OdbcSchema(*session_.dialect)) connection.Run(statement);
  } catch (...) {
    if (!session_.dialect->createsInTransaction) RemoveSchema();
    throw;
  }
}

// Best effort, after a failure that is told anyway.
void OdbcEngine::RemoveSchema() const noexcept {
  for (const std::string& statement : OdbcSchemaRemoval()) {
    try {
      session_.connection.Run(statement);
    } catch (const data::RunTimeError&) {
      // The next may still go.
    }
  }
}

std::unique_ptr<Statement> OdbcEngine::Prepare(std::string_view sql) {
  return std::make_unique<OdbcStatement>(session_, sql);
}

void OdbcEngine::BeginReading() {
  session_.connection.Begin(SQL_TXN_REPEATABLE_READ);
  session_.reading = true;
}

void OdbcEngine::BeginWriting() {
  session_.connection.Begin(SQL_TXN_READ_COMMITTED);
}

void OdbcEngine::Commit() {
  session_.reading = false;
  session_.connection.Commit();
}

void OdbcEngine::Rollback() noexcept {
  session_.reading = false;
  session_.connection.Rollback();
}

}  // namespace server
