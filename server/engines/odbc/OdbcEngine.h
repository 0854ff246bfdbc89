#pragma once

#include <utility>

#include "server/engines/odbc/OdbcSession.h"

namespace server {

// A database behind an ODBC driver.
class OdbcEngine final : public Engine {
 public:
  // Connects.
  explicit OdbcEngine(OdbcTarget target) : session_(std::move(target)) {}

  // Raises a database error that names what is in the way when the database holds any of the
  // schema's tables or views already.
  void CreateSchema() override;
  bool ReadsAhead() const override { return true; }
  std::unique_ptr<Statement> Prepare(std::string_view sql) override;
  std::int32_t RowsAffected() override { return session_.rowsAffected; }
  void BeginReading() override { session_.BeginReading(); }
  void BeginWriting() override { session_.BeginWriting(); }
  void Commit() override { session_.Commit(); }
  void Rollback() noexcept override { session_.Rollback(); }
  bool IsConflict(const data::RunTimeError& error) const override;

 private:
  void RemoveSchema() noexcept;

  OdbcSession session_;
};

}  // namespace server
