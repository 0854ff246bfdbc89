#pragma once

#include <string>
#include <vector>

#include "server/engines/odbc/OdbcSession.h"
#include "server/engines/odbc/RowBlock.h"
#include "server/engines/odbc/WideText.h"

namespace server {

// A prepared statement of a session, which must outlive it. Where its connection was lost it is
// prepared again on the next. One that only reads, outside a transaction, is asked once more there;
// a write is not, and raises kWriteUncertain when nobody knows whether it was done.
class OdbcStatement final : public Statement {
 public:
  OdbcStatement(OdbcSession& session, std::string_view sql);
  ~OdbcStatement() override;
  OdbcStatement(const OdbcStatement&) = delete;
  OdbcStatement& operator=(const OdbcStatement&) = delete;

  void Bind(int parameter, std::int64_t number) override;
  void Bind(int parameter, std::string_view text) override;
  void BindNull(int parameter) override;
  bool Step() override;
  Field Read(int column) override { return handle_->rows.Read(column); }
  void Reset() noexcept override;

 private:
  struct Parameter {
    bool isNumber = false;
    std::int64_t number = 0;
    std::string text;               // in the form in which the driver takes it
    SQLLEN length = SQL_NULL_DATA;  // of the text in bytes; 0 for a number
  };

  using Parameters = std::vector<Parameter>;

  // What the driver reads and writes in a call, which owns it; see CallThread.h.
  struct Handle {
    Handle(std::shared_ptr<OdbcConnection> itsConnection, TextForm form);
    ~Handle();
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    std::shared_ptr<OdbcConnection> connection;  // that the statement is prepared on
    OdbcStatementHandle statement;
    RowBlock rows;
  };

  Parameter& ParameterAt(int parameter);
  void Prepare();
  void PrepareOnce();
  void Execute();
  void Run();
  void BindParameters();
  void BindText(SQLUSMALLINT position, Parameter& bound);
  static void Check(const Handle& handle, SQLRETURN result);

  OdbcSession& session_;
  std::string sql_;
  bool reads_;  // whether it is a SELECT
  std::shared_ptr<Handle> handle_;
  std::shared_ptr<Parameters> parameters_;
  bool executed_ = false;
};

}  // namespace server
