#include "server/engines/odbc/OdbcSession.h"

#include <algorithm>
#include <utility>

#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/engines/odbc/ConnectionString.h"

namespace server {

OdbcSession::OdbcSession(OdbcTarget target) : target_(std::move(target)) {
  Connect();
}

namespace {

bool Holds(const data::RunTimeError& error, std::string_view piece) {
  return !piece.empty() && error.Text().find(data::FromUtf8(piece)) != std::wstring::npos;
}

// Whether the server is a node of a cluster. One that is cut off fails here, so that the next is
// tried.
bool JoinCluster(const OdbcConnection& connection, const ClusterWords& words) {
  if (words.question.empty() || connection.Ask(words.question) != "ON") return false;
  connection.Run(words.probe);
  connection.Run(words.settings);
  return true;
}

}  // namespace

void OdbcSession::Connect() {
  OdbcTarget target = target_;
  const std::size_t hosts = Hosts();
  for (std::size_t tried = 1;; ++tried) {
    if (!target_.hosts.empty()) {
      target.connectionString = WithHost(target_.connectionString, target_.hosts[host_]);
    }
    try {
      auto connection = std::make_shared<OdbcConnection>(target);
      const Dialect& dialect = DialectFor(connection->Info(SQL_DBMS_NAME));
      connection->Run(dialect.settings(target.statementTime));
      inCluster_ = JoinCluster(*connection, dialect.cluster);
      connection_ = std::move(connection);
      dialect_ = &dialect;
      lost_ = false;
      return;
    } catch (const data::RunTimeError&) {
      host_ = (host_ + 1) % hosts;
      if (tried == hosts) throw;
    }
  }
}

const std::shared_ptr<OdbcConnection>& OdbcSession::Use() {
  if (lost_) {
    if (inTransaction_) FailDatabase(L"08003: the connection to the database was lost");
    Connect();
  }
  return connection_;
}

bool OdbcSession::NoteLoss(const data::RunTimeError& error) {
  if (lost_ || error.Number() != kDatabaseError) return lost_;
  lost_ = connection_->IsLost(error.Text());
  // A host that hangs is not asked first again.
  if (lost_ && connection_->IsStuck()) host_ = (host_ + 1) % Hosts();
  return lost_;
}

bool OdbcSession::IsRefusal(const data::RunTimeError& error) const {
  return Holds(error, dialect_->cluster.refusal);
}

void OdbcSession::NoteLag(const data::RunTimeError& error) {
  if (inCluster_ && Holds(error, dialect_->cluster.lag)) lost_ = true;
}

void OdbcSession::BeginReading() {
  Use()->Begin(SQL_TXN_REPEATABLE_READ);
  inTransaction_ = true;
  reading_ = true;
}

void OdbcSession::BeginWriting() {
  Use()->Begin(SQL_TXN_READ_COMMITTED);
  inTransaction_ = true;
}

void OdbcSession::Commit() {
  if (!inTransaction_) return;
  try {
    Use()->Commit();
  } catch (const data::RunTimeError& error) {
    const bool known = lost_;
    if (NoteLoss(error) && !known && wrote_) Fail(kWriteUncertain, error.Text());
    throw;
  }
  AfterTransaction();
}

void OdbcSession::Rollback() noexcept {
  connection_->Rollback();
  AfterTransaction();
}

void OdbcSession::AfterTransaction() noexcept {
  lost_ = lost_ || connection_->IsUnusable();
  inTransaction_ = reading_ = wrote_ = savepoint_ = false;
}

void OdbcSession::BeforeRead() {
  if (!NeedsSavepoint() || savepoint_) return;
  connection_->Run("SAVEPOINT before_error");
  savepoint_ = true;
}

void OdbcSession::BeforeWrite() {
  if (NeedsSavepoint()) connection_->Run("SAVEPOINT before_error");
}

// What was written must not be undone by a later statement that fails.
void OdbcSession::AfterWrite() {
  wrote_ = inTransaction_;
  if (!NeedsSavepoint()) return;
  connection_->Run("RELEASE SAVEPOINT before_error");
  savepoint_ = false;
}

void OdbcSession::AfterFailedStatement() {
  if (NeedsSavepoint() && !lost_) connection_->Run("ROLLBACK TO SAVEPOINT before_error");
}

}  // namespace server
