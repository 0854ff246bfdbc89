#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "server/engines/odbc/CallThread.h"
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

  // A new statement handle, and the end of one.
  OdbcStatementHandle NewStatement() const;
  void Release(OdbcStatementHandle statement) noexcept;
  // Makes a call that the server may have to answer. Raises a database error when it does not
  // within the time for a statement; the connection is lost then. The call, which may go on for
  // long after that, must own what it uses.
  SQLRETURN Call(std::function<SQLRETURN()> call) const;
  // Raises that error where it was raised once: nothing of this connection may be touched any more.
  void RequireAnswer() const;
  bool IsStuck() const { return thread_.IsStuck(); }
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
  // Whether it could not be returned to: nothing more may be asked on this connection.
  bool IsUnusable() const { return isUnusable_; }

 private:
  // What a call that was given up needs in the end.
  struct Handles {
    Handles();
    ~Handles();
    Handles(const Handles&) = delete;
    Handles& operator=(const Handles&) = delete;

    OdbcEnvironmentHandle environment;
    OdbcConnectionHandle connection;
    std::mutex mutex;
    // Those that could not be freed while a call did not come back.
    std::vector<OdbcStatementHandle> left;
  };

  SQLRETURN CallWithin(std::chrono::seconds limit, std::function<SQLRETURN()> call) const;
  void Connect(const OdbcTarget& target);
  void SetAttribute(SQLINTEGER attribute, SQLULEN value) const;
  void Check(SQLRETURN result) const;
  OdbcStatementHandle Execute(std::string_view sql) const;
  SQLRETURN EndTransaction(SQLSMALLINT how) const;
  void LeaveTransaction() noexcept;

  std::chrono::seconds statementTime_;
  std::shared_ptr<Handles> handles_;
  mutable CallThread thread_;
  SQLULEN isolation_ = 0;  // 0 before the first transaction
  bool inTransaction_ = false;
  bool isUnusable_ = false;
};

}  // namespace server
