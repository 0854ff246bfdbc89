#include "tests/support/data/RawOdbc.h"

#include <cctype>
#include <stdexcept>

#include "server/engines/odbc/OdbcError.h"
#include "server/engines/odbc/WideText.h"

namespace test_support {
namespace {

bool IsWordLetter(char letter) {
  return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_';
}

// The names of the schema's tables begin with these letters and stand in capitals.
std::string WithTableNames(std::string sql) {
  bool quoted = false;
  bool capital = false;
  for (std::size_t i = 0; i < sql.size(); ++i) {
    if (sql[i] == '\'') quoted = !quoted;
    const bool start = IsWordLetter(sql[i]) && (i == 0 || !IsWordLetter(sql[i - 1]));
    if (start) capital = !quoted && sql.compare(i, 2, "qr") == 0;
    if (capital) sql[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(sql[i])));
  }
  return sql;
}

std::vector<std::string> Statements(const std::string& sql) {
  std::vector<std::string> statements(1);
  bool quoted = false;
  for (const char letter : sql) {
    if (letter == '\'') quoted = !quoted;
    if (letter == ';' && !quoted) {
      statements.emplace_back();
    } else if (letter != ' ' || !statements.back().empty()) {
      statements.back() += letter;
    }
  }
  std::erase_if(statements, [](const std::string& statement) {
    return statement.empty() || statement.starts_with("pragma");
  });
  return statements;
}

// text is room for the longest that tests store.
std::string ReadColumn(SQLHANDLE statement, SQLUSMALLINT column, server::OdbcText& text) {
  SQLLEN length = 0;
  if (!SQL_SUCCEEDED(SQLGetData(statement, column, SQL_C_WCHAR, text.data(),
                                static_cast<SQLLEN>(text.size() * sizeof(SQLWCHAR)), &length))) {
    throw std::runtime_error(server::DiagnosisOf(SQL_HANDLE_STMT, statement).message);
  }
  if (length == SQL_NULL_DATA) return "NULL";
  return server::FromOdbc(text.data(), static_cast<std::size_t>(length) / sizeof(SQLWCHAR));
}

}  // namespace

RawOdbc::RawOdbc(const server::OdbcTarget& target) : connection_(target) {
  if (connection_.Info(SQL_DBMS_NAME) != "MariaDB") return;
  connection_.Run("SET SESSION sql_mode = CONCAT(@@sql_mode, ',PIPES_AS_CONCAT')");
}

RawDatabase::RowTexts RawOdbc::Rows(const std::string& sql) {
  RawDatabase::RowTexts rows;
  for (const std::string& statement : Statements(sql)) rows = Run(WithTableNames(statement));
  return rows;
}

RawDatabase::RowTexts RawOdbc::Run(const std::string& sql) {
  const server::OdbcStatementHandle handle = connection_.NewStatement();
  server::OdbcText text = server::ToOdbc(sql);
  const SQLRETURN result =
      SQLExecDirectW(handle.Get(), text.data(), static_cast<SQLINTEGER>(text.size()));
  if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
    throw std::runtime_error(server::DiagnosisOf(SQL_HANDLE_STMT, handle.Get()).message + " in " +
                             sql);
  }
  SQLSMALLINT columns = 0;
  SQLNumResultCols(handle.Get(), &columns);
  RawDatabase::RowTexts rows;
  server::OdbcText room(100'000);
  while (columns > 0 && SQL_SUCCEEDED(SQLFetch(handle.Get()))) {
    auto& row = rows.emplace_back();
    for (SQLSMALLINT i = 1; i <= columns; ++i) {
      row.push_back(ReadColumn(handle.Get(), static_cast<SQLUSMALLINT>(i), room));
    }
  }
  return rows;
}

}  // namespace test_support
