#include "server/engines/odbc/OdbcEngine.h"

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/sql/Schema.h"
#include "server/engines/odbc/OdbcSchema.h"
#include "server/engines/odbc/OdbcStatement.h"

namespace server {

void OdbcEngine::CreateSchema() {
  const OdbcConnection& connection = *session_.Use();
  const std::string there = connection.Ask(OdbcSchemaQuestion(session_.Kind()));
  if (!there.empty()) {
    FailDatabase(L"the database is not empty: it holds " + data::FromUtf8(there));
  }
  try {
    for (const std::string& statement : Schema(session_.Kind().schema)) connection.Run(statement);
  } catch (...) {
    if (!session_.Kind().createsInTransaction) RemoveSchema();
    throw;
  }
}

// Best effort, after a failure that is told anyway.
void OdbcEngine::RemoveSchema() noexcept {
  for (const std::string& statement : OdbcSchemaRemoval()) {
    try {
      session_.Use()->Run(statement);
    } catch (const data::RunTimeError&) {
      // The next may still go.
    }
  }
}

bool OdbcEngine::IsConflict(const data::RunTimeError& error) const {
  return error.Text().starts_with(L"40001");
}

std::unique_ptr<Statement> OdbcEngine::Prepare(std::string_view sql) {
  return std::make_unique<OdbcStatement>(session_, sql);
}

}  // namespace server
