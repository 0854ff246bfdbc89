#include "server/engines/odbc/OdbcStatement.h"

#include <algorithm>
#include <utility>

#include "server/core/Errors.h"
#include "server/engines/odbc/OdbcError.h"

namespace server {
namespace {

bool IsSelect(std::string_view sql) {
  return sql.starts_with("SELECT") || sql.starts_with("select");
}

// The longest text, in units, that drivers take for a usual one and not for a large object.
constexpr std::size_t kUsualText = 4000;

}  // namespace

OdbcStatement::OdbcStatement(OdbcSession& session, std::string_view sql)
    : session_(session),
      sql_(sql),
      reads_(IsSelect(sql)),
      parameters_(std::make_shared<Parameters>()) {
  Prepare();
}

OdbcStatement::~OdbcStatement() = default;

OdbcStatement::Handle::Handle(std::shared_ptr<OdbcConnection> itsConnection, TextForm form)
    : connection(std::move(itsConnection)),
      statement(connection->NewStatement()),
      rows(statement.Get(), form) {}

OdbcStatement::Handle::~Handle() {
  connection->Release(std::move(statement));
}

// Some drivers ask the server already here. Nothing is done by it that could be done twice.
void OdbcStatement::Prepare() {
  try {
    PrepareOnce();
  } catch (const data::RunTimeError& error) {
    session_.NoteLag(error);
    if (!session_.NoteLoss(error) || session_.InTransaction()) throw;
    PrepareOnce();
  }
}

void OdbcStatement::PrepareOnce() {
  const TextForm form = session_.Kind().textForm;
  const auto handle = std::make_shared<Handle>(session_.Use(), form);
  // A call that was given up may still read what it was given.
  parameters_ = std::make_shared<Parameters>(*parameters_);
  if (reads_ && form == TextForm::kUtf8) {
    Check(*handle,
          SQLSetStmtAttr(handle->statement.Get(), SQL_ATTR_CURSOR_TYPE,
                         reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(SQL_CURSOR_STATIC)), 0));
  }
  Check(*handle, handle->connection->Call([handle, text = ToOdbc(sql_)]() mutable {
    return SQLPrepareW(handle->statement.Get(), text.data(), static_cast<SQLINTEGER>(text.size()));
  }));
  // One that could not be prepared does not take the place of the one before: its connection is
  // another one, and the next run sees by that that it has to be prepared.
  handle_ = handle;
}

void OdbcStatement::Check(const Handle& handle, SQLRETURN result) {
  if (!SQL_SUCCEEDED(result)) FailWith(DiagnosisOf(SQL_HANDLE_STMT, handle.statement.Get()));
}

OdbcStatement::Parameter& OdbcStatement::ParameterAt(int parameter) {
  const auto count = static_cast<std::size_t>(parameter);
  // What a call that was given up reads is not touched any more.
  if (handle_->connection->IsStuck()) parameters_ = std::make_shared<Parameters>(*parameters_);
  if (parameters_->size() < count) parameters_->resize(count);
  return (*parameters_)[count - 1];
}

void OdbcStatement::Bind(int parameter, std::int64_t number) {
  Parameter& bound = ParameterAt(parameter);
  bound.isNumber = true;
  bound.number = number;
  bound.length = 0;
}

void OdbcStatement::Bind(int parameter, std::string_view text) {
  Parameter& bound = ParameterAt(parameter);
  bound.isNumber = false;
  if (session_.Kind().textForm == TextForm::kWide) {
    const OdbcText wide = ToOdbc(text);
    bound.text.assign(reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(SQLWCHAR));
  } else {
    bound.text = text;
  }
  bound.length = static_cast<SQLLEN>(bound.text.size());
}

void OdbcStatement::BindNull(int parameter) {
  Parameter& bound = ParameterAt(parameter);
  bound.isNumber = false;
  bound.text.clear();
  bound.length = SQL_NULL_DATA;
}

void OdbcStatement::BindParameters() {
  SQLUSMALLINT position = 0;
  for (Parameter& bound : *parameters_) {
    ++position;
    if (bound.isNumber) {
      Check(*handle_,
            SQLBindParameter(handle_->statement.Get(), position, SQL_PARAM_INPUT, SQL_C_SBIGINT,
                             SQL_BIGINT, 0, 0, &bound.number, 0, &bound.length));
      continue;
    }
    BindText(position, bound);
  }
}

void OdbcStatement::BindText(SQLUSMALLINT position, Parameter& bound) {
  const bool wide = session_.Kind().textForm == TextForm::kWide;
  // In the driver's units; drivers do not take a column without any.
  const std::size_t size =
      std::max<std::size_t>(bound.text.size() / (wide ? sizeof(SQLWCHAR) : 1), 1);
  SQLSMALLINT type = wide ? SQL_WVARCHAR : SQL_VARCHAR;
  if (size > kUsualText) type = wide ? SQL_WLONGVARCHAR : SQL_LONGVARCHAR;
  Check(*handle_,
        SQLBindParameter(handle_->statement.Get(), position, SQL_PARAM_INPUT,
                         wide ? SQL_C_WCHAR : SQL_C_CHAR, type, size, 0, bound.text.data(),
                         static_cast<SQLLEN>(bound.text.size()), &bound.length));
}

void OdbcStatement::Execute() {
  BindParameters();
  const SQLRETURN result = handle_->connection->Call(
      [handle = handle_, parameters = parameters_] { return SQLExecute(handle->statement.Get()); });
  // A statement that finds nothing to delete or change has not failed.
  if (result != SQL_NO_DATA) Check(*handle_, result);
  executed_ = true;
}

// A statement that fails within a reading transaction must leave it as it is.
void OdbcStatement::Run() {
  if (handle_->connection != session_.Use()) Prepare();
  if (reads_) {
    session_.BeforeRead();
  } else {
    session_.BeforeWrite();
  }
  try {
    Execute();
  } catch (const data::RunTimeError& error) {
    if (reads_) session_.NoteLag(error);
    const bool lost = session_.NoteLoss(error) && !session_.IsRefusal(error);
    if (lost && !reads_ && !session_.InTransaction()) {
      Fail(kWriteUncertain, error.Text());
    }
    session_.AfterFailedStatement();
    throw;
  }
  if (!reads_) session_.AfterWrite();
}

bool OdbcStatement::Step() {
  if (executed_) {
    handle_->connection->RequireAnswer();
    return handle_->rows.Next();
  }
  try {
    Run();
  } catch (const data::RunTimeError& error) {
    if (!reads_ || session_.InTransaction() || !session_.NoteLoss(error)) throw;
    Run();
  }
  SQLSMALLINT columns = 0;
  Check(*handle_, SQLNumResultCols(handle_->statement.Get(), &columns));
  if (columns > 0) {
    handle_->rows.Start(columns);
    return handle_->rows.Next();
  }
  SQLLEN affected = 0;
  Check(*handle_, SQLRowCount(handle_->statement.Get(), &affected));
  session_.rowsAffected = static_cast<std::int32_t>(affected);
  return false;
}

void OdbcStatement::Reset() noexcept {
  if (executed_ && !handle_->connection->IsStuck())
    SQLFreeStmt(handle_->statement.Get(), SQL_CLOSE);
  executed_ = false;
}

}  // namespace server
