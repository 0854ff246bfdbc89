#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>

#include "data/RunTimeError.h"
#include "server/core/sql/Engine.h"
#include "server/engines/odbc/Dialect.h"
#include "server/engines/odbc/OdbcConnection.h"

namespace server {

// What an engine and its statements share: the connection, found again after it was lost, and where
// in a transaction it is.
class OdbcSession {
 public:
  // Connects to the first host that answers.
  explicit OdbcSession(OdbcTarget target);

  // The connection to ask something on. One that was lost is found again here, on whichever host
  // answers, but not within a transaction: what that has read or written went with it.
  const std::shared_ptr<OdbcConnection>& Use();
  const Dialect& Kind() const { return *dialect_; }

  void BeginReading();
  void BeginWriting();
  // A connection that is lost meanwhile leaves it open whether what was written is there; that is
  // raised as kWriteUncertain.
  void Commit();
  void Rollback() noexcept;
  bool InTransaction() const { return inTransaction_; }
  bool Reading() const { return reading_; }

  // Around a statement within a reading transaction, on a server where one that fails makes the
  // whole transaction worthless: makes ready to go back to the state before it, and does so. One
  // that only reads needs that once for all that follow.
  void BeforeRead();
  void BeforeWrite();
  void AfterWrite();
  void AfterFailedStatement();

  // Whether a failure means that the connection is lost. It is not used any more then.
  bool NoteLoss(const data::RunTimeError& error);
  // Takes a connection for lost whose node, as a read has failed, does not get on with its cluster.
  void NoteLag(const data::RunTimeError& error);
  // Whether a failure says that a node of a cluster did nothing of what it was told.
  bool IsRefusal(const data::RunTimeError& error) const;

  std::int32_t rowsAffected = 0;

 private:
  void Connect();
  void AfterTransaction() noexcept;
  std::size_t Hosts() const { return std::max<std::size_t>(target_.hosts.size(), 1); }
  bool NeedsSavepoint() const { return reading_ && dialect_->errorEndsTransaction; }

  OdbcTarget target_;
  std::size_t host_ = 0;  // the one that answered last
  std::shared_ptr<OdbcConnection> connection_;
  const Dialect* dialect_ = nullptr;
  bool inCluster_ = false;
  bool lost_ = false;
  bool inTransaction_ = false;
  bool reading_ = false;    // in a reading transaction
  bool wrote_ = false;      // in this transaction
  bool savepoint_ = false;  // there is one to go back to, with nothing written after it
};

}  // namespace server
