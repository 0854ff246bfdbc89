#include "server/engines/odbc/OdbcConnection.h"

#include <vector>

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

// A server that hangs answers nothing, not even that time is up: this driver then gives up by
// itself.
std::string WithPatience(std::string text, const OdbcTarget& target) {
  const std::string seconds = std::to_string(target.statementTime.count() + 5);
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

OdbcConnection::OdbcConnection(const OdbcTarget& target) : environment_(nullptr) {
  SQLSetEnvAttr(environment_.Get(), SQL_ATTR_ODBC_VERSION,
                reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(SQL_OV_ODBC3)), 0);
  connection_ = OdbcConnectionHandle(environment_.Get());
  SetAttribute(SQL_ATTR_LOGIN_TIMEOUT, static_cast<SQLULEN>(target.connectTime.count()));
  OdbcText text = ToOdbc(WholeString(target));
  const SQLRETURN result = SQLDriverConnectW(connection_.Get(), nullptr, text.data(),
                                             static_cast<SQLSMALLINT>(text.size()), nullptr, 0,
                                             nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(result)) {
    FailWith(WithoutPassword(DiagnosisOf(SQL_HANDLE_DBC, connection_.Get()), target.password));
  }
}

OdbcConnection::~OdbcConnection() {
  // A connection with an open transaction is not let go.
  Rollback();
  SQLDisconnect(connection_.Get());
}

bool OdbcConnection::IsLost(std::wstring_view message) const {
  // Connection exceptions, a server that is shutting down, and MariaDB's own words.
  for (const std::wstring_view sign : {L"08", L"57P01", L"57P02", L"57P03", L"HYT01"}) {
    if (message.starts_with(sign)) return true;
  }
  for (const std::wstring_view words : {L"server has gone away", L"Lost connection"}) {
    if (message.find(words) != std::wstring_view::npos) return true;
  }
  SQLUINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttr(connection_.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  return dead == SQL_CD_TRUE;
}

void OdbcConnection::Check(SQLRETURN result) const {
  if (!SQL_SUCCEEDED(result)) FailWith(DiagnosisOf(SQL_HANDLE_DBC, connection_.Get()));
}

void OdbcConnection::SetAttribute(SQLINTEGER attribute, SQLULEN value) const {
  Check(SQLSetConnectAttr(connection_.Get(), attribute, reinterpret_cast<SQLPOINTER>(value), 0));
}

OdbcStatementHandle OdbcConnection::NewStatement() const {
  OdbcStatementHandle statement(connection_.Get());
  if (statement.Get() == nullptr) {
    FailWith(DiagnosisOf(SQL_HANDLE_DBC, connection_.Get()));
  }
  return statement;
}

namespace {

void Execute(const OdbcStatementHandle& statement, std::string_view sql) {
  OdbcText text = ToOdbc(sql);
  const SQLRETURN result =
      SQLExecDirectW(statement.Get(), text.data(), static_cast<SQLINTEGER>(text.size()));
  // A statement that finds nothing to delete or change has not failed.
  if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
    FailWith(DiagnosisOf(SQL_HANDLE_STMT, statement.Get()));
  }
}

}  // namespace

void OdbcConnection::Run(std::string_view sql) const {
  Execute(NewStatement(), sql);
}

std::string OdbcConnection::Ask(std::string_view sql) const {
  const OdbcStatementHandle statement = NewStatement();
  Execute(statement, sql);
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
  Check(SQLGetInfoW(connection_.Get(), what, text, sizeof text, &bytes));
  return FromOdbc(text, static_cast<std::size_t>(bytes) / sizeof *text);
}

void OdbcConnection::Begin(SQLUINTEGER isolation) {
  if (isolation != isolation_) SetAttribute(SQL_ATTR_TXN_ISOLATION, isolation);
  isolation_ = isolation;
  SetAttribute(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_OFF);
  inTransaction_ = true;
}

void OdbcConnection::Commit() {
  Check(SQLEndTran(SQL_HANDLE_DBC, connection_.Get(), SQL_COMMIT));
  inTransaction_ = false;
  SetAttribute(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_ON);
}

void OdbcConnection::Rollback() noexcept {
  if (!inTransaction_) return;
  inTransaction_ = false;
  SQLEndTran(SQL_HANDLE_DBC, connection_.Get(), SQL_ROLLBACK);
  SQLSetConnectAttr(connection_.Get(), SQL_ATTR_AUTOCOMMIT,
                    reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(SQL_AUTOCOMMIT_ON)), 0);
}

}  // namespace server
