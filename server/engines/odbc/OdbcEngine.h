#pragma once

#include "server/engines/odbc/OdbcSession.h"

namespace server {

// A database behind an ODBC driver.
class OdbcEngine final : public Engine {
 public:
  // Connects. A statement that takes longer than statementTime is ended with an error, and so is
  // one that has to wait that long for somebody else's lock.
  OdbcEngine(const OdbcTarget& target, std::chrono::seconds statementTime);

  // Raises a database error that names what is in the way when the database holds any of the
  // schema's tables or views already.
  void CreateSchema() override;
  bool ReadsAhead() const override { return true; }
  std::unique_ptr<Statement> Prepare(std::string_view sql) override;
  std::int32_t RowsAffected() override { return session_.rowsAffected; }
  void BeginReading() override;
  void BeginWriting() override;
  void Commit() override;
  void Rollback() noexcept override;

 private:
  void RemoveSchema() const noexcept;

  OdbcSession session_;
};

}  // namespace server
