#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "server/engines/odbc/OdbcHandle.h"

namespace server {

// What a connection is made with.
struct OdbcTarget {
  std::string connectionString;  // UTF-8, without user and password
  std::string user;              // empty where the connection string or the system names him
  std::string password;
  std::chrono::seconds connectTime{10};
  // A statement that takes longer is ended with an error, and so is one that has to wait that long
  // for somebody else's lock.
  std::chrono::seconds statementTime{30};
  // The hosts that the database is on, in the place of the one that the connection string names;
  // see WithHost. Empty for that one alone.
  std::vector<std::string> hosts = {};
};

// An open connection to a data source. Failures are database errors with the driver's own state and
// message; the password is in none of them.
class OdbcConnection {
 public:
  explicit OdbcConnection(const OdbcTarget& target);
  ~OdbcConnection();
  OdbcConnection(const OdbcConnection&) = delete;
  OdbcConnection& operator=(const OdbcConnection&) = delete;

  // A new statement handle.
  OdbcStatementHandle NewStatement() const;
  // Whether nothing can be asked on this connection any more, as far as the driver knows after a
  // failure with this message.
  bool IsLost(std::wstring_view message) const;
  // Runs a statement without parameters whose rows, if any, do not matter.
  void Run(std::string_view sql) const;
  // The first column of the first row; empty when there is no row.
  std::string Ask(std::string_view sql) const;

  // What the driver says of the database's kind: SQL_DBMS_NAME and the like.
  std::string Info(SQLUSMALLINT what) const;

  // Leaves the mode in which each statement is a transaction of its own.
  void Begin(SQLUINTEGER isolation);
  bool InTransaction() const { return inTransaction_; }
  // End the transaction and return to that mode.
  void Commit();
  void Rollback() noexcept;

 private:
  void SetAttribute(SQLINTEGER attribute, SQLULEN value) const;
  void Check(SQLRETURN result) const;

  OdbcEnvironmentHandle environment_;
  OdbcConnectionHandle connection_;
  SQLULEN isolation_ = 0;  // 0 before the first transaction
  bool inTransaction_ = false;
};

}  // namespace server
