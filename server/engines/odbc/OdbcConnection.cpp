#include "server/engines/odbc/OdbcConnection.h"

#include <utility>
#include <vector>

#include "data/RunTimeError.h"
#include "server/engines/odbc/ConnectionString.h"
#include "server/engines/odbc/OdbcError.h"
#include "server/engines/odbc/WideText.h"

namespace server {
namespace {

// What drivers must be asked for before the connection is made; each pays no attention to what is
// for the others. MariaDB and MySQL: that an UPDATE counts the rows that it finds, also those that
// it leaves as they were (flag 2), and that every letter of Unicode is sent as it is. PostgreSQL:
// that the driver does not surround each statement of a transaction with two of its own.
std::string WithOptions(std::string text) {
  if (!text.ends_with(';')) text += ';';
  if (!HasKeyword(text, "PROTOCOL")) text += "PROTOCOL=7.4-0;";
  if (!HasKeyword(text, "OPTION")) text += "OPTION=2;";
  if (!HasKeyword(text, "CHARSET")) text += "CHARSET=utf8mb4;";
  return text;
}

// How much longer than a statement may take a driver waits for the server, which should have ended
// it by itself, and how much longer the driver is waited for.
constexpr std::chrono::seconds kDriverGrace{5};
constexpr std::chrono::seconds kGrace{7};

// A server that hangs answers nothing, not even that time is up. One of the drivers then gives up
// by itself; see CallThread.h for the other.
std::string WithPatience(std::string text, const OdbcTarget& target) {
  const std::string seconds = std::to_string((target.statementTime + kDriverGrace).count());
  for (const char* const keyword : {"READ_TIMEOUT", "WRITE_TIMEOUT"}) {
    if (!HasKeyword(text, keyword)) text = WithValue(text, keyword, seconds);
  }
  const std::string patience = std::to_string(target.connectTime.count());
  return HasKeyword(text, "CONN_TIMEOUT") ? text : WithValue(text, "CONN_TIMEOUT", patience);
}

std::string WholeString(const OdbcTarget& target) {
  std::string text = WithPatience(WithOptions(target.connectionString), target);
  if (!target.user.empty()) text += "UID=" + ConnectionValue(target.user) + ";";
  if (!target.password.empty()) text += "PWD=" + ConnectionValue(target.password) + ";";
  return text;
}

// A driver that repeats what it was given must not make the password known.
OdbcDiagnosis WithoutPassword(OdbcDiagnosis diagnosis, const std::string& password) {
  std::string& text = diagnosis.message;
  for (std::size_t at = 0; !password.empty();) {
    at = text.find(password, at);
    if (at == std::string::npos) break;
    text.replace(at, password.size(), "***");
    at += 3;
  }
  return diagnosis;
}

}  // namespace

OdbcConnection::Handles::Handles() : environment(nullptr) {
  SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION,
                reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(SQL_OV_ODBC3)), 0);
  connection = OdbcConnectionHandle(environment.Get());
}

OdbcConnection::Handles::~Handles() {
  left.clear();
  SQLDisconnect(connection.Get());
}

OdbcConnection::OdbcConnection(const OdbcTarget& target)
    : statementTime_(target.statementTime), handles_(std::make_shared<Handles>()) {
  SetAttribute(SQL_ATTR_LOGIN_TIMEOUT, static_cast<SQLULEN>(target.connectTime.count()));
  Connect(target);
}

void OdbcConnection::Connect(const OdbcTarget& target) {
  const auto connect = [handles = handles_, text = ToOdbc(WholeString(target))]() mutable {
    return SQLDriverConnectW(handles->connection.Get(), nullptr, text.data(),
                             static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr,
                             SQL_DRIVER_NOPROMPT);
  };
  if (!SQL_SUCCEEDED(CallWithin(target.connectTime, connect))) {
    FailWith(
        WithoutPassword(DiagnosisOf(SQL_HANDLE_DBC, handles_->connection.Get()), target.password));
  }
}

OdbcConnection::~OdbcConnection() {
  // A connection with an open transaction is not let go.
  Rollback();
}

SQLRETURN OdbcConnection::Call(std::function<SQLRETURN()> call) const {
  return CallWithin(statementTime_, std::move(call));
}

SQLRETURN OdbcConnection::CallWithin(std::chrono::seconds limit,
                                     std::function<SQLRETURN()> call) const {
  RequireAnswer();
  const std::optional<SQLRETURN> result = thread_.Run(std::move(call), limit + kGrace);
  if (!result) RequireAnswer();
  return *result;
}

void OdbcConnection::RequireAnswer() const {
  if (thread_.IsStuck()) FailWith({"HYT01", "the database server does not answer"});
}

bool OdbcConnection::IsLost(std::wstring_view message) const {
  if (thread_.IsStuck() || isUnusable_) return true;
  // Connection exceptions, a server that is shutting down, and MariaDB's own words.
  for (const std::wstring_view sign : {L"08", L"57P01", L"57P02", L"57P03", L"HYT01"}) {
    if (message.starts_with(sign)) return true;
  }
  for (const std::wstring_view words : {L"server has gone away", L"Lost connection"}) {
    if (message.find(words) != std::wstring_view::npos) return true;
  }
  SQLUINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttr(handles_->connection.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  return dead == SQL_CD_TRUE;
}

void OdbcConnection::Check(SQLRETURN result) const {
  if (!SQL_SUCCEEDED(result)) FailWith(DiagnosisOf(SQL_HANDLE_DBC, handles_->connection.Get()));
}

void OdbcConnection::SetAttribute(SQLINTEGER attribute, SQLULEN value) const {
  Check(Call([handles = handles_, attribute, value] {
    return SQLSetConnectAttr(handles->connection.Get(), attribute,
                             reinterpret_cast<SQLPOINTER>(value), 0);
  }));
}

OdbcStatementHandle OdbcConnection::NewStatement() const {
  RequireAnswer();
  OdbcStatementHandle statement(handles_->connection.Get());
  if (statement.Get() == nullptr) {
    FailWith(DiagnosisOf(SQL_HANDLE_DBC, handles_->connection.Get()));
  }
  return statement;
}

// Some drivers tell the server that a statement is not wanted any more, and wait for the answer.
void OdbcConnection::Release(OdbcStatementHandle statement) noexcept {
  if (statement.Get() == nullptr) return;
  if (thread_.IsStuck()) {
    const std::lock_guard lock(handles_->mutex);
    handles_->left.push_back(std::move(statement));
    return;
  }
  const auto kept = std::make_shared<OdbcStatementHandle>(std::move(statement));
  thread_.Run(
      [handles = handles_, kept] {
        *kept = OdbcStatementHandle();
        return SQLRETURN{SQL_SUCCESS};
      },
      statementTime_ + kGrace);
}

OdbcStatementHandle OdbcConnection::Execute(std::string_view sql) const {
  struct Parts {
    std::shared_ptr<Handles> handles;
    OdbcStatementHandle statement;
    OdbcText text;
  };
  const auto parts = std::make_shared<Parts>(Parts{handles_, NewStatement(), ToOdbc(sql)});
  const SQLRETURN result = Call([parts] {
    return SQLExecDirectW(parts->statement.Get(), parts->text.data(),
                          static_cast<SQLINTEGER>(parts->text.size()));
  });
  // A statement that finds nothing to delete or change has not failed.
  if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
    FailWith(DiagnosisOf(SQL_HANDLE_STMT, parts->statement.Get()));
  }
  return std::move(parts->statement);
}

void OdbcConnection::Run(std::string_view sql) const {
  Execute(sql);
}

std::string OdbcConnection::Ask(std::string_view sql) const {
  const OdbcStatementHandle statement = Execute(sql);
  if (!SQL_SUCCEEDED(SQLFetch(statement.Get()))) return {};
  SQLWCHAR text[512] = {};
  SQLLEN length = 0;
  SQLGetData(statement.Get(), 1, SQL_C_WCHAR, text, sizeof text, &length);
  return length < 0 ? std::string()
                    : FromOdbc(text, static_cast<std::size_t>(length) / sizeof *text);
}

std::string OdbcConnection::Info(SQLUSMALLINT what) const {
  SQLWCHAR text[256] = {};
  SQLSMALLINT bytes = 0;
  Check(SQLGetInfoW(handles_->connection.Get(), what, text, sizeof text, &bytes));
  return FromOdbc(text, static_cast<std::size_t>(bytes) / sizeof *text);
}

void OdbcConnection::Begin(SQLUINTEGER isolation) {
  if (isolation != isolation_) SetAttribute(SQL_ATTR_TXN_ISOLATION, isolation);
  isolation_ = isolation;
  SetAttribute(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_OFF);
  inTransaction_ = true;
}

void OdbcConnection::Commit() {
  Check(EndTransaction(SQL_COMMIT));
  LeaveTransaction();
}

// What would be written where that fails would never be committed.
void OdbcConnection::LeaveTransaction() noexcept {
  inTransaction_ = false;
  try {
    SetAttribute(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_ON);
  } catch (const data::RunTimeError&) {
    isUnusable_ = true;
  }
}

void OdbcConnection::Rollback() noexcept {
  if (!inTransaction_) return;
  try {
    if (!SQL_SUCCEEDED(EndTransaction(SQL_ROLLBACK))) isUnusable_ = true;
  } catch (const data::RunTimeError&) {
    isUnusable_ = true;  // the transaction went with the connection
  }
  LeaveTransaction();
}

SQLRETURN OdbcConnection::EndTransaction(SQLSMALLINT how) const {
  return Call([handles = handles_, how] {
    return SQLEndTran(SQL_HANDLE_DBC, handles->connection.Get(), how);
  });
}

}  // namespace server
